// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

/// The environment variables of this process, for tests: these run on one thread, and what they
/// start on others reads no variables.
namespace pallistrom::Environment {

/// Returns the value of a variable; an empty string if there is none.
[[nodiscard]] std::string value(const char* name);

/// Returns the number that a variable says, or `otherwise` if there is no such variable. One that
/// says no number above 0 fails the test.
[[nodiscard]] std::uint64_t number(const char* name, std::uint64_t otherwise);

void set(const char* name, const std::string& value);

void unset(const char* name);

} // namespace pallistrom::Environment
