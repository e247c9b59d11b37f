// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace pallistrom {

/// What a window says of the application that it belongs to: the two parts of WM_CLASS, in UTF-8.
/// On Wayland there is only the second.
struct WindowClass {
    /// A part that is longer is cut off: no application is called so.
    static constexpr std::size_t mostBytes = 256;

    std::string instance; ///< how this run of the application is called
    std::string name;     ///< how the application is called

    friend bool operator==(const WindowClass&, const WindowClass&) = default;
};

} // namespace pallistrom
