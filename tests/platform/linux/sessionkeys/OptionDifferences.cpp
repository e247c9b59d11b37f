// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "OptionDifferences.h"

#include <linux/input-event-codes.h>

namespace pallistrom {

using enum Modifier;

const std::map<std::string, ModifierDifference>& differencesByOption() {
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

} // namespace pallistrom
