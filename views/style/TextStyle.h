// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

#include <cstdint>

namespace pallistrom {

/// The kinds of text that there are. Where one is used is up to the view; how it looks is here.
enum class TextStyle : std::uint8_t {
    Greeting,
    Title2Bold,
    Headline,
    Body,
    Subheadline,
    Caption,
    KeyCap,
    Badge,
};

/// Returns the size and weight of a style, and for key caps the family. A widget takes all the rest
/// from its parent, so that it follows the desktop's font.
[[nodiscard]] QFont fontOf(TextStyle style);

} // namespace pallistrom
