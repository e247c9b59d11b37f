// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace pallistrom::VersionOrder {

/// Returns which promise of an order does not hold for three texts, versions or not; an empty text
/// if all do.
[[nodiscard]] std::string
brokenPromise(std::string_view first, std::string_view second, std::string_view third);

} // namespace pallistrom::VersionOrder
