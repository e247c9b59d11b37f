// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/ProcessInfo.h"

#include "platform/linux/system/OsRelease.h"

namespace pallistrom {

NSOperatingSystemVersion operatingSystemVersion() {
    return OsRelease::ofSystem().versionNumbers();
}

} // namespace pallistrom
