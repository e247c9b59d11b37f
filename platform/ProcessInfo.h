// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace pallistrom {

/// A version of the operating system; 0 for a number that it does not have.
struct NSOperatingSystemVersion {
    std::int64_t majorVersion = 0;
    std::int64_t minorVersion = 0;
    std::int64_t patchVersion = 0;
};

/// Returns the version of the system that the program runs on.
NSOperatingSystemVersion operatingSystemVersion();

} // namespace pallistrom
