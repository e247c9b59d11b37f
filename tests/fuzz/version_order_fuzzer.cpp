// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "VersionOrderPromises.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

// Cuts off what lies before the next zero, or all.
std::string_view take(std::string_view& rest) {
    const auto size = std::min(rest.find('\0'), rest.size());
    const auto taken = rest.substr(0, size);
    rest.remove_prefix(std::min(size + 1, rest.size()));
    return taken;
}

} // namespace

// The input is three versions with a zero after each.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes are bytes
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    const auto first = take(rest);
    const auto second = take(rest);
    const auto third = take(rest);
    if (const auto promise = pallistrom::VersionOrder::brokenPromise(first, second, third);
        !promise.empty()) {
        std::fprintf(stderr, "does not hold: %s\n", promise.c_str());
        std::abort();
    }
    return 0;
}
