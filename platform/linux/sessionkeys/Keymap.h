// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

struct xkb_context;
struct xkb_keymap;

/// A keymap of XKB that somebody else has made.
namespace pallistrom::Keymap {

struct Unref {
    void operator()(xkb_keymap* keymap) const noexcept;
};

using Owned = std::unique_ptr<xkb_keymap, Unref>;

struct UnrefContext {
    void operator()(xkb_context* context) const noexcept;
};

using Context = std::unique_ptr<xkb_context, UnrefContext>;

/// Makes what keymaps are read in: it looks for no files, and logs nothing. Null if there is no
/// memory.
[[nodiscard]] Context makeContext();

/// The longest text that is read. Those of real sessions have some 60 kB for each layout.
inline constexpr std::size_t mostBytes = std::size_t{4} * 1024 * 1024;

/// Reads a keymap that is written as text. Null if the text is none, or too long to be one. It may
/// end with zero bytes. What it includes is not looked for: a keymap that is handed over is whole.
[[nodiscard]] Owned read(std::string_view text);

} // namespace pallistrom::Keymap
