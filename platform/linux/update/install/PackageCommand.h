// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/system/OsRelease.h"

#include <cstdint>
#include <string>

/// How a distribution's own program for packages brings the newest version of ours.
namespace pallistrom::PackageCommand {

/// Whether the system's files are one image that is replaced as a whole.
enum class SystemFiles : std::uint8_t { Single, Image };

/// Returns a command line for people to read and to copy. Empty if it is not known, or if there is
/// none for a single package.
[[nodiscard]] std::string forSystem(const OsRelease& release, SystemFiles files);

} // namespace pallistrom::PackageCommand
