// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <systemd/sd-event.h>

/// What the service asks of the system for its own process.
namespace pallistrom::ThisProcess {

/// Lets no other process look into this one, leaves no picture of its memory behind if it crashes,
/// and writes files that nobody else can read.
void keepToItself();

/// Keeps in memory what is there now and what will be used, so that no key waits for the disk. Less
/// than all that is mapped: most of that is never touched.
void lockMemory();

/// Makes SIGTERM and SIGINT end `loop`. Returns whether that can be done.
[[nodiscard]] bool endWithSignals(sd_event* loop);

} // namespace pallistrom::ThisProcess
