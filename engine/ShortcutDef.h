// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ShortcutAction.h"
#include "platform/EventFlags.h"

#include <cstdint>
#include <string_view>

namespace pallistrom {

/// One shortcut: what fires it, what it does, and how it is shown. An immutable value; lists tell
/// shortcuts apart by `id`. The texts are UTF-8, shown as they stand, and outlive the record.
struct ShortcutDef {
    const std::string_view id;       ///< stable and unique; part of the key of its switch
    const std::string_view title;    ///< short name
    const std::string_view subtitle; ///< one line on what it does
    const std::string_view keyLabel; ///< modifier symbol and letter, as on a key cap
    const std::int64_t triggerKeyCode;
    const CGEventFlags requiredFlags;  ///< all of these must be held; shares no bit with the next
    const CGEventFlags forbiddenFlags; ///< none of these may be held
    const ShortcutAction action;
    const bool defaultEnabled; ///< its switch until the user changes it
    const bool recommended;
};

} // namespace pallistrom
