// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sessionkeys/X11Keymap.h"

#include <xkbcommon/xkbcommon-x11.h>

namespace pallistrom::X11Keymap {

Keymap::Owned read(const X11Connection& connection) {
    const auto context = Keymap::makeContext();
    if (!context || xkb_x11_setup_xkb_extension(connection.get(),
                                                XKB_X11_MIN_MAJOR_XKB_VERSION,
                                                XKB_X11_MIN_MINOR_XKB_VERSION,
                                                XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS,
                                                nullptr,
                                                nullptr,
                                                nullptr,
                                                nullptr) == 0) {
        return nullptr;
    }
    const int keyboard = xkb_x11_get_core_keyboard_device_id(connection.get());
    return keyboard < 0
               ? nullptr
               : Keymap::Owned(xkb_x11_keymap_new_from_device(
                     context.get(), connection.get(), keyboard, XKB_KEYMAP_COMPILE_NO_FLAGS));
}

} // namespace pallistrom::X11Keymap
