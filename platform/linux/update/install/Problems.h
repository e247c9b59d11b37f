// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/install/NewProgram.h"

#include <filesystem>
#include <string>

/// What is said to the user when a new version cannot be installed: a sentence or two each.
namespace pallistrom::Problems {

/// The system refuses to write in `folder`, for a reason that errno numbers.
[[nodiscard]] std::string ofSystem(int error, const std::filesystem::path& folder);

[[nodiscard]] std::string badArchive();

[[nodiscard]] std::string missingTool(const std::string& program);

/// Things of others lie in the program's own `folder`.
[[nodiscard]] std::string sharedFolder(const std::filesystem::path& folder);

/// The new version needs what this system does not have.
[[nodiscard]] std::string doesNotStart();

/// `verdict` is any but Fits.
[[nodiscard]] std::string unfit(NewProgram::Verdict verdict);

} // namespace pallistrom::Problems
