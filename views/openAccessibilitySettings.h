// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

namespace pallistrom {

/// Shows the user the system's page of programs that may use accessibility. What comes of it is not
/// reported; the state finds a new permission by itself.
void openAccessibilitySettings();

} // namespace pallistrom
