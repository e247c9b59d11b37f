// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// The program that takes over from this one: a newer version of it.
namespace pallistrom::Successor {

/// Returns the arguments for it, from those of this process: without what belongs to the one start.
[[nodiscard]] std::vector<std::string> arguments(std::vector<std::string> ofThisProcess);

/// Goes on as `program` in this same process, so that whoever started us sees no end: a session
/// manager, systemd. Nothing of this process stays open. Returns if that cannot be done.
void start(const std::filesystem::path& program);

} // namespace pallistrom::Successor
