// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "OptionDifferences.h"
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
    const auto expected = differencesByOption().find(GetParam());
    if (expected == differencesByOption().end()) {
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
