// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/GnomeExtension.h"

#include <string_view>

namespace pallistrom {

/// What the access pane says where terminals cannot be told from other applications.
struct FrontAdvice {
    std::string_view text;           ///< whole sentences
    bool offersTheExtension = false; ///< GnomeExtension::switchOn() would help

    [[nodiscard]] static FrontAdvice about(GnomeExtension::State extension);
};

} // namespace pallistrom
