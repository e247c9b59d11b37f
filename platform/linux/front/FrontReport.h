// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/applications/WindowClass.h"

#include <cstdint>
#include <utility>

namespace pallistrom {

/// What a source can say of the window in front.
struct FrontReport {
    enum class Kind : std::uint8_t {
        Unknown, ///< the source cannot tell
        Nobody,  ///< it can, and there is none: between two windows, or in a launcher
        Window,
    };

    Kind kind = Kind::Unknown;
    WindowClass window{};      ///< of a window; otherwise empty
    bool isInTerminal = false; ///< the keyboard is in a terminal, whatever else the window has

    [[nodiscard]] static FrontReport unknown() { return {}; }

    [[nodiscard]] static FrontReport nobody() { return {.kind = Kind::Nobody}; }

    [[nodiscard]] static FrontReport of(WindowClass window) {
        return {.kind = Kind::Window, .window = std::move(window)};
    }

    friend bool operator==(const FrontReport&, const FrontReport&) = default;
};

} // namespace pallistrom
