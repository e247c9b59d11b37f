// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

/// Puts one folder in the place of another. All of them lie on one file system.
namespace pallistrom::FolderExchange {

/// Makes each of two folders take the other's name, at one stroke where the file system can do
/// that, and otherwise by way of `aside`, a name that is free. Returns 0, or why it could not be
/// done, as errno numbers it; then all is as it was.
[[nodiscard]] int exchange(const std::filesystem::path& one,
                           const std::filesystem::path& other,
                           const std::filesystem::path& aside);

/// The second way alone. If it is interrupted, `one` may be missing; `aside` is it then.
[[nodiscard]] int exchangeBySteps(const std::filesystem::path& one,
                                  const std::filesystem::path& other,
                                  const std::filesystem::path& aside);

} // namespace pallistrom::FolderExchange
