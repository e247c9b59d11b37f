// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontRule.h"
#include "platform/linux/front/FrontSource.h"
#include "platform/linux/front/FrontWatch.h"

#include <functional>
#include <memory>
#include <vector>

namespace pallistrom {

/// The application in front by what the sources of a session report: the first of them that can
/// tell is believed.
class SessionFrontWatch final : public FrontWatch {
public:
    /// `classify` tells what a window is.
    SessionFrontWatch(FrontRule::Classify classify, std::function<void()> whenChanged);

    /// Adds a source that counts less than those before. `make` gets the function that the source
    /// is to call when its report has changed.
    template<typename Make>
    void addSource(const Make& make) {
        m_sources.push_back(make([this] { sourceChanged(); }));
        look();
    }

    [[nodiscard]] std::optional<FrontApplication> application() const override {
        return m_rule.application();
    }

    [[nodiscard]] bool isKnown() const override { return m_isKnown; }

    [[nodiscard]] WindowClass window() const override { return m_window; }

private:
    void look();
    void sourceChanged();

    std::function<void()> m_whenChanged;
    FrontRule m_rule;
    bool m_isKnown = false;
    WindowClass m_window; ///< the last one
    std::vector<std::unique_ptr<FrontSource>> m_sources;
};

} // namespace pallistrom
