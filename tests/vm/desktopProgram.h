// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

namespace pallistrom::vm {

/// What the desktop program says to the keyboard service: asks for the grant, switches everything
/// on, and waits until it is ended. Says nothing, so that it can be a copy of the test's process.
int desktopProgram();

} // namespace pallistrom::vm
