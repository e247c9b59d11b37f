// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/AppcastItem.h"

#include <string>
#include <string_view>

/// Texts of feeds, as somebody who releases programs writes them.
namespace pallistrom::FeedText {

/// Returns a feed with these items.
[[nodiscard]] std::string feed(std::string_view items);

/// Returns an item with a version, and `elements` besides.
[[nodiscard]] std::string item(std::string_view version, std::string_view elements = {});

/// Returns an archive for Linux. The signature is well-formed, if it is not told otherwise.
[[nodiscard]] std::string archive(std::string_view address = "https://example.invalid/archive",
                                  std::uint64_t length = 1000,
                                  std::string_view signature = {},
                                  std::string_view system = "linux");

} // namespace pallistrom::FeedText
