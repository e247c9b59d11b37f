// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/x11/XkbKeyNames.h"

#include <linux/input-event-codes.h>

#include <algorithm>
#include <array>
#include <utility>

namespace pallistrom::XkbKeyNames {

namespace {

// Names: The X Keyboard Extension, Library Specification, and the evdev keycodes of
// xkeyboard-config.
// clang-format off
constexpr auto names = std::to_array<std::pair<std::string_view, EvdevCode>>({
    {"ESC", KEY_ESC},
    {"FK01", KEY_F1},   {"FK02", KEY_F2},   {"FK03", KEY_F3},   {"FK04", KEY_F4},
    {"FK05", KEY_F5},   {"FK06", KEY_F6},   {"FK07", KEY_F7},   {"FK08", KEY_F8},
    {"FK09", KEY_F9},   {"FK10", KEY_F10},  {"FK11", KEY_F11},  {"FK12", KEY_F12},
    {"FK13", KEY_F13},  {"FK14", KEY_F14},  {"FK15", KEY_F15},  {"FK16", KEY_F16},
    {"FK17", KEY_F17},  {"FK18", KEY_F18},  {"FK19", KEY_F19},  {"FK20", KEY_F20},

    {"TLDE", KEY_GRAVE},
    {"AE01", KEY_1}, {"AE02", KEY_2}, {"AE03", KEY_3}, {"AE04", KEY_4}, {"AE05", KEY_5},
    {"AE06", KEY_6}, {"AE07", KEY_7}, {"AE08", KEY_8}, {"AE09", KEY_9}, {"AE10", KEY_0},
    {"AE11", KEY_MINUS}, {"AE12", KEY_EQUAL}, {"AE13", KEY_YEN}, {"BKSP", KEY_BACKSPACE},

    {"TAB", KEY_TAB},
    {"AD01", KEY_Q}, {"AD02", KEY_W}, {"AD03", KEY_E}, {"AD04", KEY_R}, {"AD05", KEY_T},
    {"AD06", KEY_Y}, {"AD07", KEY_U}, {"AD08", KEY_I}, {"AD09", KEY_O}, {"AD10", KEY_P},
    {"AD11", KEY_LEFTBRACE}, {"AD12", KEY_RIGHTBRACE}, {"RTRN", KEY_ENTER},

    {"CAPS", KEY_CAPSLOCK},
    {"AC01", KEY_A}, {"AC02", KEY_S}, {"AC03", KEY_D}, {"AC04", KEY_F}, {"AC05", KEY_G},
    {"AC06", KEY_H}, {"AC07", KEY_J}, {"AC08", KEY_K}, {"AC09", KEY_L},
    {"AC10", KEY_SEMICOLON}, {"AC11", KEY_APOSTROPHE}, {"BKSL", KEY_BACKSLASH},

    {"LFSH", KEY_LEFTSHIFT}, {"LSGT", KEY_102ND},
    {"AB01", KEY_Z}, {"AB02", KEY_X}, {"AB03", KEY_C}, {"AB04", KEY_V}, {"AB05", KEY_B},
    {"AB06", KEY_N}, {"AB07", KEY_M},
    {"AB08", KEY_COMMA}, {"AB09", KEY_DOT}, {"AB10", KEY_SLASH}, {"AB11", KEY_RO},
    {"RTSH", KEY_RIGHTSHIFT},

    {"LCTL", KEY_LEFTCTRL}, {"LWIN", KEY_LEFTMETA},  {"LALT", KEY_LEFTALT},   {"SPCE", KEY_SPACE},
    {"RALT", KEY_RIGHTALT}, {"RWIN", KEY_RIGHTMETA}, {"COMP", KEY_COMPOSE},   {"RCTL", KEY_RIGHTCTRL},

    {"INS", KEY_INSERT}, {"HOME", KEY_HOME}, {"PGUP", KEY_PAGEUP},
    {"DELE", KEY_DELETE}, {"END", KEY_END}, {"PGDN", KEY_PAGEDOWN},
    {"UP", KEY_UP}, {"LEFT", KEY_LEFT}, {"DOWN", KEY_DOWN}, {"RGHT", KEY_RIGHT},

    {"NMLK", KEY_NUMLOCK}, {"KPDV", KEY_KPSLASH}, {"KPMU", KEY_KPASTERISK}, {"KPSU", KEY_KPMINUS},
    {"KP7", KEY_KP7}, {"KP8", KEY_KP8}, {"KP9", KEY_KP9}, {"KPAD", KEY_KPPLUS},
    {"KP4", KEY_KP4}, {"KP5", KEY_KP5}, {"KP6", KEY_KP6},
    {"KP1", KEY_KP1}, {"KP2", KEY_KP2}, {"KP3", KEY_KP3}, {"KPEN", KEY_KPENTER},
    {"KP0", KEY_KP0}, {"KPDL", KEY_KPDOT}, {"KPEQ", KEY_KPEQUAL}, {"KPPT", KEY_KPCOMMA},

    {"HNGL", KEY_HANGEUL}, {"HJCV", KEY_HANJA},
    {"MUTE", KEY_MUTE}, {"VOL-", KEY_VOLUMEDOWN}, {"VOL+", KEY_VOLUMEUP},
});
// clang-format on

} // namespace

std::optional<EvdevCode> evdevCode(std::string_view name) {
    const auto* const found = std::find_if(
        names.begin(), names.end(), [name](const auto& entry) { return entry.first == name; });
    return found == names.end() ? std::nullopt : std::optional(found->second);
}

} // namespace pallistrom::XkbKeyNames
