// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/SessionFrontWatch.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace pallistrom {

SessionFrontWatch::SessionFrontWatch(FrontRule::Classify classify,
                                     std::function<void()> whenChanged)
    : m_whenChanged(std::move(whenChanged)), m_rule(std::move(classify)) {}

void SessionFrontWatch::look() {
    const auto known = std::find_if(m_sources.begin(), m_sources.end(), [](const auto& source) {
        return source->report().kind != FrontReport::Kind::Unknown;
    });
    m_isKnown = known != m_sources.end();
    for (auto source = m_sources.begin(); source != m_sources.end(); ++source) {
        (*source)->setWanted(source <= known ? FrontSource::Wanted::Yes : FrontSource::Wanted::No);
    }
    const FrontReport report = m_isKnown ? (*known)->report() : FrontReport::unknown();
    if (report.kind == FrontReport::Kind::Window) {
        m_window = report.window;
    }
    m_rule.take(report);
}

void SessionFrontWatch::sourceChanged() {
    const auto before = std::tuple(application(), m_isKnown, m_window);
    look();
    if (std::tuple(application(), m_isKnown, m_window) != before) {
        m_whenChanged();
    }
}

} // namespace pallistrom
