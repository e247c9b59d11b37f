// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "SettingsTextPromises.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

using namespace pallistrom;

// Cuts off what lies before the next `end`, or all.
std::string_view takeUntil(char end, std::string_view& rest) {
    const auto size = std::min(rest.find(end), rest.size());
    const auto taken = rest.substr(0, size);
    rest.remove_prefix(std::min(size + 1, rest.size()));
    return taken;
}

} // namespace

// The input is the text of a settings file, after it 0xFF, and after that changed keys: each is the
// value (true if the byte is odd), the key and 0xFE.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes are bytes
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    const auto text = takeUntil('\xFF', rest);
    SettingsText::Values changes;
    while (!rest.empty()) {
        const auto change = takeUntil('\xFE', rest);
        if (!change.empty()) {
            const bool value = static_cast<unsigned char>(change.front()) % 2 == 1;
            changes.insert_or_assign(std::string(change.substr(1)), value);
        }
    }
    if (const auto promise = SettingsText::brokenPromise(text, changes); !promise.empty()) {
        std::fprintf(stderr, "does not hold: %s\n", promise.c_str());
        std::abort();
    }
    return 0;
}
