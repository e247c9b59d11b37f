// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

namespace pallistrom {

class KeyboardService;

/// Returns the keyboard service, as this program knows it. It lives as long as the program.
KeyboardService& keyboardService();

} // namespace pallistrom
