// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// How much memory this program has at most had at the same time. Counts whatever malloc gives, in
/// whichever library.
namespace pallistrom::bench::HeapPeak {

/// Begins anew.
void reset();

/// Returns by how many bytes the most since reset() is more than what there was then.
[[nodiscard]] std::size_t bytes();

} // namespace pallistrom::bench::HeapPeak
