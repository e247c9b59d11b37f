// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Shortcut.h"

#include <ostream>

namespace pallistrom::e2e {

void PrintTo(const Shortcut& shortcut, std::ostream* out) {
    *out << shortcut.name;
}

const std::array<Shortcut, 4>& allShortcuts() {
    static const std::array<Shortcut, 4> shortcuts{{
        {.name = "controlW",
         .id = "ctrlW",
         .modifier = "ctrl",
         .key = "w",
         .editingKeys = "+ctrl +BackSpace -BackSpace -ctrl",
         .deletesToTheLeft = true,
         .grab = {.keysym = 'w', .modifiers = XCB_MOD_MASK_CONTROL}},
        {.name = "controlU",
         .id = "ctrlU",
         .modifier = "ctrl",
         .key = "u",
         .editingKeys = "+shift +Home -Home -shift +BackSpace -BackSpace",
         .deletesToTheLeft = true,
         .grab = {.keysym = 'u', .modifiers = XCB_MOD_MASK_CONTROL}},
        {.name = "controlK",
         .id = "ctrlK",
         .modifier = "ctrl",
         .key = "k",
         .editingKeys = "+shift +End -End -shift +BackSpace -BackSpace",
         .deletesToTheLeft = false,
         .grab = {.keysym = 'k', .modifiers = XCB_MOD_MASK_CONTROL}},
        {.name = "optionD",
         .id = "altD",
         .modifier = "alt",
         .key = "d",
         .editingKeys = "+ctrl +Delete -Delete -ctrl",
         .deletesToTheLeft = false,
         .grab = {.keysym = 'd', .modifiers = XCB_MOD_MASK_1}},
    }};
    return shortcuts;
}

} // namespace pallistrom::e2e
