// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FakePlatform.h"
#include "engine/EventTapController.h"
#include "engine/Preferences.h"
#include "engine/ShortcutLibrary.h"

#include <gtest/gtest.h>

#include <memory>
#include <span>
#include <string>

namespace pallistrom {

/// A running engine on the fake platform, with the switches as after installation.
class EngineTest : public testing::Test {
protected:
    EngineTest() { Preferences::registerDefaults(ShortcutLibrary::all); }

    void TearDown() override { tapController.reset(); }

    /// Publishes a controller for `shortcuts` and starts its tap.
    void startWith(std::span<const ShortcutDef> shortcuts) {
        tapController = std::make_shared<EventTapController>(shortcuts);
        ASSERT_TRUE(tapController->start());
        platform.calls.clear();
        platform.defaultsRead.clear();
    }

    [[nodiscard]] std::unique_ptr<fake::Stroke> down(std::int64_t keyCode,
                                                     CGEventFlags flags) const {
        return platform.send(kCGEventKeyDown, {.keyCode = keyCode, .flags = flags, .down = true});
    }

    [[nodiscard]] std::unique_ptr<fake::Stroke> up(std::int64_t keyCode, CGEventFlags flags) const {
        return platform.send(kCGEventKeyUp, {.keyCode = keyCode, .flags = flags, .down = false});
    }

    fake::Platform platform;
};

} // namespace pallistrom
