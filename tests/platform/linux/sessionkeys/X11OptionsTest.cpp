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
#include "platform/linux/sessionkeys/X11Keymap.h"
#include "platform/linux/x11/X11Keyboard.h"
#include "platform/linux/x11/X11Session.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>
#include <xkbcommon/xkbcommon.h>

#include <map>
#include <memory>
#include <optional>
#include <string>

namespace pallistrom {

namespace {

// The server and setxkbmap make their keymaps by other programs than compositors do, and tell less
// of them. What comes of them must be the same.
class X11Options : public testing::Test {
protected:
    void SetUp() override {
        const std::string missing = e2e::missingPrograms({"Xvfb", "setxkbmap", "xkbcomp"});
        if (!missing.empty()) {
            GTEST_SKIP() << missing;
        }
        m_server.emplace(Command{.arguments = {"Xvfb", "-screen", "0", "300x200x24"},
                                 .environment = m_home.environment("")});
        Environment::unset("WAYLAND_DISPLAY");
        Environment::set("DISPLAY", m_server->name());
        m_connection = X11Session::open();
        set("");
    }

    void set(const std::string& option) const {
        run({.arguments = {"setxkbmap",
                           "-rules",
                           "evdev",
                           "-layout",
                           "us",
                           "-option",
                           "",
                           "-option",
                           option},
             .environment = m_home.environment(m_server->name())});
    }

    // All that are known, with what they change.
    static std::map<std::string, ModifierDifference> known() {
        std::map<std::string, ModifierDifference> known;
        for (const std::string& option : optionsOf({"ctrl", "altwin", "caps", "lv3"})) {
            if (const auto found = differencesByOption().find(option);
                found != differencesByOption().end()) {
                known.insert(*found);
            }
        }
        // The server's names for its keys make this a swap of Caps Lock and Control.
        if (const auto swap = known.find("ctrl:ac_ctrl"); swap != known.end()) {
            swap->second = {{KEY_CAPSLOCK, Modifier::Control}, {KEY_LEFTCTRL, Modifier::CapsLock}};
        }
        return known;
    }

    EventLoop m_loop;

private:
    e2e::Home m_home;
    std::optional<e2e::XServer> m_server;
    std::unique_ptr<X11Connection> m_connection; ///< without any, the server starts anew
};

TEST_F(X11Options, moveModifiersAsTheirNamesSay) {
    const auto watch = SessionKeysWatch::ofSession([] {});
    for (const auto& [option, expected] : known()) {
        SCOPED_TRACE(option);
        set(option);
        static_cast<void>(m_loop.runUntil([&, &expected = expected] {
            return differenceFromStandard(watch->modifiers()) == expected;
        }));
        EXPECT_EQ(differenceFromStandard(watch->modifiers()), expected);
    }
}

// The X11 tap grabs keys by these bits.
TEST_F(X11Options, leaveBitsOfKeyEventsThatMeanWhatTheirKeysDo) {
    for (const auto& [option, expected] : known()) {
        SCOPED_TRACE(option);
        set(option);
        const auto connection = X11Session::open();
        ASSERT_TRUE(connection);
        const X11Keyboard keyboard(*connection);
        EXPECT_EQ(differenceFromStandard(keyboard.modifiers()), expected);
        const auto keymap = X11Keymap::read(*connection);
        ASSERT_TRUE(keymap);
        for (EvdevCode code = 1; code <= ModifierTable::highestCode; ++code) {
            const CGEventFlags flags = flagOf(keyboard.modifiers().modifierOf(code));
            const auto keycode = keyboard.positions().keycode(code);
            if (flags == 0 || flags == kCGEventFlagMaskAlphaShift || !keycode) {
                continue;
            }
            SCOPED_TRACE(code);
            const std::unique_ptr<xkb_state, decltype(&xkb_state_unref)> state(
                xkb_state_new(keymap.get()), xkb_state_unref);
            xkb_state_update_key(state.get(), *keycode, XKB_KEY_DOWN);
            const auto bits = static_cast<std::uint16_t>(
                xkb_state_serialize_mods(state.get(), XKB_STATE_MODS_EFFECTIVE) & 0xFFU);
            EXPECT_EQ(keyboard.flagsOf(bits) & flags, flags);
        }
    }
}

} // namespace

} // namespace pallistrom
