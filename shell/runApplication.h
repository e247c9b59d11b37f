// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

namespace pallistrom {

/// The program from its start to its end: makes the application and its delegate and runs the event
/// loop. Returns the exit status.
int runApplication(int argc, char** argv);

} // namespace pallistrom
