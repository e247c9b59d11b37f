// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// What the keyboard service and the desktop program tell each other. The calls themselves are in
/// packaging/service/org.pallistrom.Keyboard1.xml.
namespace pallistrom::KeyboardInterface {

/// Of the interface. A program and a service that differ in it do not work together.
inline constexpr std::uint32_t version = 1;

/// Whether the service filters keys for a user, and if not, why. The values go over the bus.
enum class Access : std::uint32_t {
    Granted = 0,
    NotGranted = 1,
    Panicked = 2,   ///< granted, but the panic chord was pressed
    NotLocal = 3,   ///< the caller has no session at the machine's own keyboard
    NoKeyboard = 4, ///< the service can make no virtual keyboards here
};

/// What came of a request for the grant. The values go over the bus.
enum class GrantAnswer : std::uint32_t {
    Granted = 0,
    Denied = 1,
    NoAgent = 2, ///< no program of the session can ask for a password
    Busy = 3,    ///< a request of this user is still being answered
};

/// The most entries of a modifier table that the service takes.
inline constexpr std::size_t mostModifiers = 64;

/// Returns whether `text` can be the name that the login manager has given to a session.
[[nodiscard]] constexpr bool isSessionName(std::string_view text) {
    constexpr std::size_t longest = 64;
    constexpr std::string_view allowed =
        "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz";
    return !text.empty() && text.size() <= longest &&
           text.find_first_not_of(allowed) == std::string_view::npos;
}

} // namespace pallistrom::KeyboardInterface
