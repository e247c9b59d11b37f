// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

namespace pallistrom {

/// Whether a palette has light text on a dark ground.
[[nodiscard]] bool isDark(const QPalette& palette);

/// Returns dark colours with the accent of `light`.
[[nodiscard]] QPalette darkPalette(const QPalette& light);

} // namespace pallistrom
