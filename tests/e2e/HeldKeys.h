// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace pallistrom::e2e {

class XConnection;

/// The keys that are down, each as "device: key code": those of the core key map, which knows what
/// programs see, and those of every keyboard, real and made up.
std::vector<std::string> heldKeys(const XConnection& connection);

} // namespace pallistrom::e2e
