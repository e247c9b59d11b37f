// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Image.h"

#include <QString>

#include <optional>
#include <string_view>

/// The drawings that are part of the program: "symbols/delete.left", and under "tray/" and
/// "application/" the icons that are installed.
namespace pallistrom::Drawing {

/// Returns the path of the drawing, as Qt opens it.
[[nodiscard]] QString file(std::string_view name);

[[nodiscard]] bool exists(std::string_view name);

/// Returns the drawing `height` pixels high (1 to 4096), as wide as its shape makes it; nothing if
/// there is none of that name.
[[nodiscard]] std::optional<SymbolCoverage> draw(std::string_view name, int height);

} // namespace pallistrom::Drawing
