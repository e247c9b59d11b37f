// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/Image.h"
#include "platform/linux/symbols/Drawing.h"

namespace pallistrom {

namespace {

std::string drawingOf(std::string_view symbolName) {
    return "symbols/" + std::string(symbolName);
}

/// A name is no path.
bool isName(std::string_view text) {
    return !text.empty() && text.find('/') == std::string_view::npos;
}

} // namespace

std::optional<NSImage> imageWithSystemSymbolName(std::string_view name,
                                                 std::string_view accessibilityDescription) {
    if (!isName(name) || !Drawing::exists(drawingOf(name))) {
        return std::nullopt;
    }
    return NSImage{.symbolName = std::string(name),
                   .accessibilityDescription = std::string(accessibilityDescription)};
}

SymbolCoverage drawSymbol(const NSImage& image, int height) {
    return Drawing::draw(drawingOf(image.symbolName), height).value_or(SymbolCoverage{});
}

} // namespace pallistrom
