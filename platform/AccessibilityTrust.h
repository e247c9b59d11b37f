// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string_view>

namespace pallistrom {

/// Returns whether this process may filter keys now. A plain query: it asks nobody and never
/// blocks.
bool AXIsProcessTrusted();

/// Option of AXIsProcessTrustedWithOptions: whether the user is asked where the answer is no.
inline constexpr std::string_view kAXTrustedCheckOptionPrompt = "AXTrustedCheckOptionPrompt";

/// The same, with options. Being asked, the user answers later: that is no part of the result.
bool AXIsProcessTrustedWithOptions(const std::map<std::string_view, bool>& options);

} // namespace pallistrom
