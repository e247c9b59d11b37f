// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

/// The system log of the tests that link it: it keeps its lines, and writes them to the error
/// stream as well, where tests that end the process look for them.
namespace pallistrom::RecordedLog {

/// Returns the lines that were logged since the last call.
std::vector<std::string> take();

} // namespace pallistrom::RecordedLog
