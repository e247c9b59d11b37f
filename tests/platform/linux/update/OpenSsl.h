// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

/// The program "openssl", which makes keys, signatures and certificates in its own way.
namespace pallistrom::OpenSsl {

[[nodiscard]] bool isThere();

/// Runs it. Throws std::runtime_error unless it succeeds.
void run(std::vector<std::string> arguments);

} // namespace pallistrom::OpenSsl
