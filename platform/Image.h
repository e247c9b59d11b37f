// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom {

/// A picture out of the system's set of symbols: which one it is, not its pixels.
struct NSImage {
    std::string symbolName;
    std::string accessibilityDescription;
    bool isTemplate = false; ///< takes its colour from what it lies on

    friend bool operator==(const NSImage&, const NSImage&) = default;
};

/// Returns the symbol of that name ("delete.left"), or nothing if the system has none.
std::optional<NSImage> imageWithSystemSymbolName(std::string_view name,
                                                 std::string_view accessibilityDescription);

/// How much of each pixel a symbol covers, row by row from the top, 0 to 255; width * height of
/// them.
struct SymbolCoverage {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels;
};

/// Returns `image` drawn as high as `height` pixels (1 to 4096), as wide as its shape makes it.
SymbolCoverage drawSymbol(const NSImage& image, int height);

} // namespace pallistrom
