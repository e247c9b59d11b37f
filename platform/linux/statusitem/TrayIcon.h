// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Image.h"

#include <QIcon>

#include <optional>

namespace pallistrom {

/// Returns what a panel is given for `image`. The icon goes by the name of one of our installed
/// symbolic icons, which panels draw in the colour of their text; whoever does not find it there
/// gets pixels that can be seen on light and on dark ground. No image gives an icon of nothing.
[[nodiscard]] QIcon trayIcon(const std::optional<NSImage>& image);

} // namespace pallistrom
