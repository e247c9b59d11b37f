// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace pallistrom {

/// What a window says of the application that it belongs to: the two parts of WM_CLASS, in UTF-8.
struct WindowClass {
    std::string instance; ///< how this run of the application is called
    std::string name;     ///< how the application is called

    friend bool operator==(const WindowClass&, const WindowClass&) = default;
};

} // namespace pallistrom
