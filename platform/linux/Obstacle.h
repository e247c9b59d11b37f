// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace pallistrom {

/// Why a way to the keys cannot be taken.
enum class Obstacle : std::uint8_t {
    // Of the X11 tap.
    WaylandSession, ///< where an X server sees the keys of some windows only
    NoDisplay,      ///< no X server that can be reached
    NoXTest,        ///< an X server that lets nobody send keys

    // Of the keyboard service.
    NoSystemBus,         ///< by which the service could be reached
    ServiceNotInstalled, ///< nobody has its name, and nobody can be started for it
    ServiceSilent,       ///< it has not answered (yet), or it has ended
    ServiceMismatch,     ///< it speaks another language than this program
    NotGranted,          ///< nobody has allowed it
    Panicked,            ///< the panic chord was pressed
    NotLocal,            ///< this session is not at the machine's own keyboard
    NoVirtualKeyboard,   ///< the service can make none
};

/// Returns whether the obstacle is a person's word and so stands in every way, not just in that of
/// which it was heard.
[[nodiscard]] constexpr bool standsInEveryWay(Obstacle obstacle) {
    return obstacle == Obstacle::Panicked;
}

} // namespace pallistrom
