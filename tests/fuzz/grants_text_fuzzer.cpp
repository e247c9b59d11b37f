// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/grants/GrantsText.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

// The input is the text of a grant file. It is refused, or it is exactly what its grants are
// written as.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes are bytes
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto grants = pallistrom::GrantsText::parse(text);
    if (grants && pallistrom::GrantsText::make(*grants) != text) {
        std::abort();
    }
    return 0;
}
