// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Environment.h"
#include "EventLoop.h"
#include "Home.h"
#include "OptionDifferences.h"
#include "TestKeymap.h"
#include "Tools.h"
#include "XServer.h"
#include "platform/linux/sessionkeys/SessionKeysWatch.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <memory>
#include <string>

namespace pallistrom {

namespace {

// The server and setxkbmap make their keymaps by other programs than compositors do, and tell less
// of them. What comes of them must be the same.
TEST(X11Options, moveModifiersAsTheirNamesSay) {
    const std::string missing = e2e::missingPrograms({"Xvfb", "setxkbmap", "xkbcomp"});
    if (!missing.empty()) {
        GTEST_SKIP() << missing;
    }
    const e2e::Home home;
    EventLoop loop;
    const e2e::XServer server{
        {.arguments = {"Xvfb", "-screen", "0", "300x200x24"}, .environment = home.environment("")}};
    Environment::unset("WAYLAND_DISPLAY");
    Environment::set("DISPLAY", server.name());
    const auto setOption = [&](const std::string& option) {
        run({.arguments = {"setxkbmap",
                           "-rules",
                           "evdev",
                           "-layout",
                           "us",
                           "-option",
                           "",
                           "-option",
                           option},
             .environment = home.environment(server.name())});
    };
    setOption("");
    const auto watch = SessionKeysWatch::ofSession([] {});
    for (const std::string& option : optionsOf({"ctrl", "altwin", "caps", "lv3"})) {
        const auto known = differencesByOption().find(option);
        if (known == differencesByOption().end()) {
            continue; // An option that came after these tests.
        }
        // The server's names for its keys make this a swap of Caps Lock and Control.
        const auto expected = option == "ctrl:ac_ctrl"
                                  ? ModifierDifference{{KEY_CAPSLOCK, Modifier::Control},
                                                       {KEY_LEFTCTRL, Modifier::CapsLock}}
                                  : known->second;
        SCOPED_TRACE(option);
        setOption(option);
        static_cast<void>(
            loop.runUntil([&] { return differenceFromStandard(watch->modifiers()) == expected; }));
        EXPECT_EQ(differenceFromStandard(watch->modifiers()), expected);
    }
}

} // namespace

} // namespace pallistrom
