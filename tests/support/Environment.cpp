// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Environment.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cstdlib>

namespace pallistrom::Environment {

// NOLINTBEGIN(concurrency-mt-unsafe): see the header.

std::string value(const char* name) {
    const char* const text = std::getenv(name);
    return text == nullptr ? "" : text;
}

void set(const char* name, const std::string& value) {
    setenv(name, value.c_str(), 1);
}

void unset(const char* name) {
    unsetenv(name);
}

// NOLINTEND(concurrency-mt-unsafe)

std::uint64_t number(const char* name, std::uint64_t otherwise) {
    const std::string text = value(name);
    if (text.empty()) {
        return otherwise;
    }
    std::uint64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data(), end, number);
    EXPECT_TRUE(parsed.ec == std::errc() && parsed.ptr == end && number > 0)
        << name << " is '" << text << "'";
    return number;
}

} // namespace pallistrom::Environment
