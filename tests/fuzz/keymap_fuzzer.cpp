// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sessionkeys/Keymap.h"
#include "platform/linux/sessionkeys/KeymapModifiers.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

// libxkbcommon forgets some of what it has read of a text that it then finds to be none. A session
// reads few keymaps, so that matters little, and it is not ours.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the sanitizer's names
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libxkbcommon";
}

extern "C" const char* __lsan_default_options() {
    return "print_suppressions=0";
}

// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

// The input is the text of a keymap. Whatever it says, one key does not change another: the table
// is the same each time.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace pallistrom;
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes are bytes
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (const auto keymap = Keymap::read(text)) {
        if (!(modifiersOf(*keymap) == modifiersOf(*keymap))) {
            std::fprintf(stderr, "another table for the same keymap\n");
            std::abort();
        }
    }
    return 0;
}
