// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "TestKeymap.h"
#include "platform/linux/sessionkeys/Keymap.h"
#include "platform/linux/sessionkeys/KeymapModifiers.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>
#include <xkbcommon/xkbcommon.h>

#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace pallistrom {

namespace {

using enum Modifier;

/// What each option makes of the keys, by its own words and the symbols that it gives them.
const std::map<std::string, ModifierDifference>& differences() {
    // clang-format off
    static const std::map<std::string, ModifierDifference> table{
        {"ctrl:nocaps", {{KEY_CAPSLOCK, Control}}},
        {"ctrl:lctrl_meta", {{KEY_LEFTCTRL, Command}}}, // Meta, but of the modifier of Super
        {"ctrl:swapcaps", {{KEY_CAPSLOCK, Control}, {KEY_LEFTCTRL, CapsLock}}},
        {"ctrl:swapcaps_hyper", {{KEY_CAPSLOCK, Control}, {KEY_LEFTCTRL, Command}}},
        {"ctrl:ac_ctrl", {}}, // for keys that only old keyboards have
        {"ctrl:aa_ctrl", {}},
        {"ctrl:rctrl_ralt", {{KEY_RIGHTCTRL, Option}}},
        {"ctrl:menu_rctrl", {{KEY_COMPOSE, Control}}},
        {"ctrl:swap_lalt_lctl", {{KEY_LEFTALT, Control}, {KEY_LEFTCTRL, Option}}},
        {"ctrl:swap_lwin_lctl", {{KEY_LEFTMETA, Control}, {KEY_LEFTCTRL, Command}}},
        {"ctrl:swap_rwin_rctl", {{KEY_RIGHTMETA, Control}, {KEY_RIGHTCTRL, Command}}},
        {"ctrl:swap_lalt_lctl_lwin",
         {{KEY_LEFTALT, Control}, {KEY_LEFTCTRL, Command}, {KEY_LEFTMETA, Option}}},

        {"altwin:menu", {}},
        {"altwin:menu_win", {{KEY_COMPOSE, Command}}},
        {"altwin:meta_alt", {}},
        {"altwin:alt_win", {{KEY_LEFTMETA, Option}, {KEY_RIGHTMETA, Option}}},
        {"altwin:ctrl_win", {{KEY_LEFTMETA, Control}, {KEY_RIGHTMETA, Control}}},
        {"altwin:ctrl_rwin", {{KEY_RIGHTMETA, Control}}},
        {"altwin:ctrl_alt_win",
         {{KEY_LEFTALT, Control}, {KEY_RIGHTALT, Control},
          {KEY_LEFTMETA, Option}, {KEY_RIGHTMETA, Option},
          {KEY_LEFTCTRL, Command}, {KEY_RIGHTCTRL, Command}}},
        {"altwin:meta_win", {}},
        {"altwin:left_meta_win", {}},
        {"altwin:hyper_win", {}},
        {"altwin:alt_super_win", {{KEY_RIGHTMETA, Option}, {KEY_COMPOSE, Command}}},
        {"altwin:swap_lalt_lwin", {{KEY_LEFTALT, Command}, {KEY_LEFTMETA, Option}}},
        {"altwin:swap_alt_win",
         {{KEY_LEFTALT, Command}, {KEY_LEFTMETA, Option},
          {KEY_RIGHTALT, Command}, {KEY_RIGHTMETA, Option}}},
        {"altwin:prtsc_rwin", {{KEY_SYSRQ, Command}}},

        {"caps:internal", {}},
        {"caps:internal_nocancel", {}},
        {"caps:shift", {}}, // it locks all the same, only what it locks is shift
        {"caps:shift_nocancel", {}},
        {"caps:capslock", {}},
        {"caps:shiftlock", {}},
        {"caps:swapescape", {{KEY_CAPSLOCK, None}, {KEY_ESC, CapsLock}}},
        {"caps:escape", {{KEY_CAPSLOCK, None}}},
        {"caps:escape_shifted_capslock", {{KEY_CAPSLOCK, None}}},
        {"caps:escape_shifted_compose", {{KEY_CAPSLOCK, None}}},
        {"caps:backspace", {{KEY_CAPSLOCK, None}}},
        {"caps:super", {{KEY_CAPSLOCK, Command}}},
        {"caps:hyper", {{KEY_CAPSLOCK, Command}}},
        {"caps:menu", {{KEY_CAPSLOCK, None}}},
        {"caps:numlock", {{KEY_CAPSLOCK, None}}},
        {"caps:ctrl_modifier", {{KEY_CAPSLOCK, Control}}},
        {"caps:none", {{KEY_CAPSLOCK, None}}},

        {"lv3:switch", {{KEY_RIGHTCTRL, Level3}}},
        {"lv3:menu_switch", {{KEY_COMPOSE, Level3}}},
        {"lv3:win_switch", {{KEY_LEFTMETA, Level3}, {KEY_RIGHTMETA, Level3}}},
        {"lv3:lwin_switch", {{KEY_LEFTMETA, Level3}}},
        {"lv3:rwin_switch", {{KEY_RIGHTMETA, Level3}}},
        {"lv3:alt_switch", {{KEY_LEFTALT, Level3}, {KEY_RIGHTALT, Level3}}},
        {"lv3:lalt_switch", {{KEY_LEFTALT, Level3}}},
        {"lv3:ralt_switch", {{KEY_RIGHTALT, Level3}}},
        {"lv3:ralt_switch_multikey", {{KEY_RIGHTALT, Level3}}},
        {"lv3:ralt_alt", {}},
        {"lv3:enter_switch", {{KEY_KPENTER, Level3}}},
        {"lv3:caps_switch", {{KEY_CAPSLOCK, Level3}}},
        {"lv3:bksl_switch", {{KEY_BACKSLASH, Level3}}},
        {"lv3:lsgt_switch", {{KEY_102ND, Level3}}},
        {"lv3:caps_switch_latch", {{KEY_CAPSLOCK, Level3}}},
        {"lv3:bksl_switch_latch", {{KEY_BACKSLASH, Level3}}},
        {"lv3:lsgt_switch_latch", {{KEY_102ND, Level3}}},
    };
    // clang-format on
    return table;
}

ModifierTable tableWith(const std::string& options) {
    const auto keymap = Keymap::read(keymapText("us", options));
    EXPECT_TRUE(keymap) << options;
    return keymap ? modifiersOf(*keymap) : ModifierTable();
}

/// A key pressed and let go, and which modifiers of XKB were on meanwhile and after.
class PressedKey {
public:
    PressedKey(xkb_keymap* keymap, EvdevCode code)
        : m_state(xkb_state_new(keymap), xkb_state_unref) {
        xkb_state_update_key(m_state.get(), xkb_keycode_t{code} + 8, XKB_KEY_DOWN);
        m_hasControl = isActive(XKB_MOD_NAME_CTRL);
        m_hasAlt = isActive(XKB_MOD_NAME_ALT);
        m_hasSuper = isActive(XKB_MOD_NAME_LOGO);
        m_hasShift = isActive(XKB_MOD_NAME_SHIFT);
        xkb_state_update_key(m_state.get(), xkb_keycode_t{code} + 8, XKB_KEY_UP);
        m_leaves = xkb_state_serialize_mods(m_state.get(), XKB_STATE_MODS_EFFECTIVE);
    }

    [[nodiscard]] bool hasControl() const { return m_hasControl; }

    [[nodiscard]] bool hasAlt() const { return m_hasAlt; }

    [[nodiscard]] bool hasSuper() const { return m_hasSuper; }

    [[nodiscard]] bool hasShift() const { return m_hasShift; }

    [[nodiscard]] bool leavesNothing() const { return m_leaves == 0; }

private:
    [[nodiscard]] bool isActive(const char* name) const {
        return xkb_state_mod_name_is_active(m_state.get(), name, XKB_STATE_MODS_EFFECTIVE) > 0;
    }

    std::unique_ptr<xkb_state, decltype(&xkb_state_unref)> m_state;
    bool m_hasControl = false;
    bool m_hasAlt = false;
    bool m_hasSuper = false;
    bool m_hasShift = false;
    xkb_mod_mask_t m_leaves = 0;
};

class KeymapOptions : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override {
        if (GetParam() == noOptions) {
            GTEST_SKIP() << "not installed: xkeyboard-config";
        }
    }

public:
    static constexpr const char* noOptions = "none";

    static std::vector<std::string> all() {
        auto options = optionsOf({"ctrl", "altwin", "caps", "lv3"});
        return options.empty() ? std::vector<std::string>{noOptions} : options;
    }

    static std::string name(const testing::TestParamInfo<std::string>& info) {
        std::string name = info.param;
        for (char& c : name) {
            c = c == ':' ? '_' : c;
        }
        return name;
    }
};

TEST_P(KeymapOptions, moveModifiersAsTheirNamesSay) {
    const auto expected = differences().find(GetParam());
    if (expected == differences().end()) {
        GTEST_SKIP() << "an option that came after these tests";
    }
    EXPECT_EQ(differenceFromStandard(tableWith(GetParam())), expected->second);
}

// By the fixed names under which libraries and compositors look for them: Mod1 is Alt, Mod4 Super.
TEST_P(KeymapOptions, agreeWithWhatIsActiveWhenEachKeyIsPressed) {
    const auto keymap = Keymap::read(keymapText("us", GetParam()));
    ASSERT_TRUE(keymap);
    const ModifierTable table = modifiersOf(*keymap);
    for (EvdevCode code = 1; code <= ModifierTable::highestCode; ++code) {
        SCOPED_TRACE(code);
        const PressedKey key(keymap.get(), code);
        const Modifier modifier = table.modifierOf(code);
        EXPECT_EQ(modifier == Control, key.hasControl());
        EXPECT_EQ(modifier == Option, key.hasAlt());
        // The one option that gives Hyper a modifier of its own.
        const bool isHyper = GetParam() == "ctrl:swapcaps_hyper" && code == KEY_LEFTCTRL;
        EXPECT_EQ(modifier == Command, key.hasSuper() || isHyper);
        if (modifier == Shift) {
            EXPECT_TRUE(key.hasShift());
        }
        if (modifier != None && modifier != CapsLock) {
            EXPECT_TRUE(key.leavesNothing());
        }
    }
}

TEST_P(KeymapOptions, leaveAControlThatTogglesNothing) {
    const auto keymap = Keymap::read(keymapText("us", GetParam()));
    ASSERT_TRUE(keymap);
    const auto code = modifiersOf(*keymap).keyFor(Control);
    ASSERT_TRUE(code);
    const PressedKey key(keymap.get(), *code);
    EXPECT_TRUE(key.hasControl());
    EXPECT_FALSE(key.hasAlt() || key.hasShift() || key.hasSuper());
    EXPECT_TRUE(key.leavesNothing());
}

INSTANTIATE_TEST_SUITE_P(Of,
                         KeymapOptions,
                         testing::ValuesIn(KeymapOptions::all()),
                         KeymapOptions::name);

} // namespace

} // namespace pallistrom
