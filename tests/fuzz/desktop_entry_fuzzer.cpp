// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "DesktopEntryPromises.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

// The input is the text of an autostart entry, after it 0xFF, and after that the value that one of
// its keys is to get, which is also taken for the path of a program. The key is made of the first
// bytes of the value.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace pallistrom;
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes are bytes
    const std::string_view all(reinterpret_cast<const char*>(data), size);
    const auto end = std::min(all.find('\xFF'), all.size());
    const auto value = all.substr(std::min(end + 1, all.size()));
    const auto promise =
        DesktopEntryLines::brokenPromise(all.substr(0, end), value.substr(0, 4), value);
    if (!promise.empty()) {
        std::fprintf(stderr, "does not hold: %s\n", promise.c_str());
        std::abort();
    }
    return 0;
}
