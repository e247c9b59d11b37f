// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/InstalledFiles.h"

#include "pallistrom/Names.h"
#include "platform/linux/ThisProgram.h"

#include <system_error>

namespace pallistrom::InstalledFiles {

std::filesystem::path kwinScript() {
    const auto programFolder = ThisProgram::file().parent_path();
    const auto name = std::filesystem::path("share") / Names::dataFolder / "kwin" / "front.js";
    // As installed, and as built.
    std::error_code error;
    const auto installed = programFolder.parent_path() / name;
    return std::filesystem::exists(installed, error) ? installed : programFolder / name;
}

} // namespace pallistrom::InstalledFiles
