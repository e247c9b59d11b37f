// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

#include <cstdint>

namespace pallistrom::e2e {

class XConnection;

/// A key with modifiers, as programs grab it.
struct KeyCombination {
    xcb_keysym_t keysym = XCB_NO_SYMBOL;
    std::uint16_t modifiers = 0;
};

/// Tells whether another program has grabbed `combination` for the whole display.
bool isGrabbed(const XConnection& connection, KeyCombination combination);

} // namespace pallistrom::e2e
