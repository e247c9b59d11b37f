// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/TapWay.h"

#include <functional>
#include <optional>

namespace pallistrom {

/// A way to the keys that goes nowhere: what it can do is set by hand, what it was asked is
/// counted.
class FakeTapWay final : public TapWay {
public:
    FakeTapWay();
    FakeTapWay(const FakeTapWay&) = delete;
    FakeTapWay& operator=(const FakeTapWay&) = delete;
    ~FakeTapWay() override;

    // --- What it can do.
    bool runs = true;              ///< what canRun() says
    bool starts = true;            ///< whether a start works
    bool isServed = true;          ///< whether it has a descriptor
    std::function<void()> onServe; ///< called for whatever serve() finds
    std::function<void()> onStop;  ///< called when it has stopped
    /// What is in the way while it does not run.
    Obstacle obstacleInTheWay = Obstacle::NoDisplay;

    /// Something comes in.
    void arrive() const;

    /// The way breaks.
    void breakDown();

    // --- What it was asked.
    int startCount = 0;
    int stopCount = 0;
    int serveCount = 0;  ///< how often serve() found something
    int changeCount = 0; ///< how often the filter may have changed
    KeyFilter* filter = nullptr;

    std::optional<Obstacle> obstacle() override {
        return runs ? std::nullopt : std::optional(obstacleInTheWay);
    }

    bool start(KeyFilter& newFilter) override;
    void stop() override;

    [[nodiscard]] bool isRunning() const override { return m_isRunning; }

    [[nodiscard]] std::optional<int> descriptor() const override {
        return isServed ? std::optional(m_descriptor) : std::nullopt;
    }

    void serve() override;

    void filterChanged() override { ++changeCount; }

private:
    int m_descriptor;
    bool m_isRunning = false;
};

} // namespace pallistrom
