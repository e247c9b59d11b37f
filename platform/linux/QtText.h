// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string_view>

namespace pallistrom {

/// Returns UTF-8 text as Qt keeps it.
[[nodiscard]] inline QString qtText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace pallistrom
