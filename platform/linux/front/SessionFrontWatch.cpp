// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/SessionFrontWatch.h"

#include <algorithm>
#include <utility>

namespace pallistrom {

SessionFrontWatch::SessionFrontWatch(std::function<void()> whenChanged)
    : m_whenChanged(std::move(whenChanged)), m_rule([this](const WindowClass& window) {
          return m_keyOwners.includes(window) ? FrontApplication::KeepsItsKeys
                                              : FrontApplication::TakesEditingKeys;
      }) {}

void SessionFrontWatch::look() {
    const auto known = std::find_if(m_sources.begin(), m_sources.end(), [](const auto& source) {
        return source->report().kind != FrontReport::Kind::Unknown;
    });
    m_rule.take(known == m_sources.end() ? FrontReport::unknown() : (*known)->report());
}

void SessionFrontWatch::sourceChanged() {
    const auto before = application();
    look();
    if (application() != before) {
        m_whenChanged();
    }
}

} // namespace pallistrom
