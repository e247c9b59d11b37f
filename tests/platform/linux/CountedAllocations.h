// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace pallistrom {

/// Returns how often the program has asked operator new for memory so far, on any thread. Programs
/// that link this have every operator new of theirs replaced.
[[nodiscard]] std::size_t countedAllocations();

} // namespace pallistrom
