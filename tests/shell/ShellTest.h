// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FakePlatform.h"
#include "engine/Preferences.h"
#include "shell/AppDelegate.h"

#include <QEvent>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace pallistrom {

/// The whole shell on a platform that is moved by hand. Its windows are real ones, on a screen that
/// nobody sees.
class ShellTest : public testing::Test {
protected:
    ~ShellTest() override;

    /// Launches the program as the system does.
    void launch();

    /// The same for a user who has been through the guide.
    void launchAgain();

    /// Returns the visible windows' titles, in alphabetical order.
    [[nodiscard]] static std::vector<std::string> visibleWindows();

    /// Returns the visible window of that title, or nothing.
    [[nodiscard]] static Window* window(std::string_view title);

    /// Presses the button of that text in a window.
    static void press(const Window& window, std::string_view text);

    /// Runs what has been put off to a later turn of the loop.
    void turn();

    [[nodiscard]] NSApplicationActivationPolicy policy() const {
        return platform.activationPolicies.back();
    }

    fake::Platform platform;
    std::shared_ptr<AppDelegate> delegate;
};

inline constexpr auto regular = NSApplicationActivationPolicy::NSApplicationActivationPolicyRegular;
inline constexpr auto accessory =
    NSApplicationActivationPolicy::NSApplicationActivationPolicyAccessory;

} // namespace pallistrom
