// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"

#include <filesystem>
#include <functional>

/// For tests of what would spoil their own process: other rights, other limits, other mounts.
namespace pallistrom::InChildProcess {

/// Runs `body` in a child process and waits for its end. What fails or is skipped there has failed
/// or is skipped here.
void run(const std::function<void()>& body);

/// Starts `body` in a child process and returns at once. wait() is to be called.
[[nodiscard]] ChildProcess start(const std::function<void()>& body);

/// Waits for the end of a process that start() returned.
void wait(ChildProcess& child);

/// Makes this process, and all that it still starts, see mounts of its own. Returns whether it may
/// mount there.
[[nodiscard]] bool takeOwnMounts();

/// Whom the process of runAsNobody() belongs to, if this one is the superuser's.
inline constexpr unsigned nobody = 65534;

/// Makes a folder, and all that it holds, belong to whom the process of runAsNobody() belongs to.
void giveToNobody(const std::filesystem::path& folder);

/// Runs `body` as run() does, without the rights of the superuser.
void runAsNobody(const std::function<void()>& body);

} // namespace pallistrom::InChildProcess
