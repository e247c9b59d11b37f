// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace pallistrom::KeymapFile {

/// Returns the text of a keymap that a compositor hands over as a file of `size` bytes, and closes
/// the file. Empty if it is no file, has less, or is longer than any keymap. The file is not mapped
/// into memory: one that shrank meanwhile would end the program.
[[nodiscard]] std::string take(int descriptor, std::uint32_t size);

} // namespace pallistrom::KeymapFile
