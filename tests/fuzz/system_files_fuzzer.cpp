// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/bundle/InformationList.h"
#include "platform/linux/system/OsRelease.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

// The input is the text of a file that others have written: os-release or an information list.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace pallistrom;
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes are bytes
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto release = OsRelease::parse(text);
    const auto version = release.versionNumbers();
    if (release.name.empty() || release.name.find('\n') != std::string::npos ||
        version.majorVersion < 0 || version.minorVersion < 0 || version.patchVersion < 0) {
        std::abort();
    }
    (void)InformationList::parse(text).entry("CFBundleShortVersionString");
    return 0;
}
