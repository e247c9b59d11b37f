// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/GnomeExtension.h"

#include <cstdint>
#include <string_view>

namespace pallistrom {

/// What the access pane says where terminals cannot be told from other applications.
struct FrontAdvice {
    enum class Knowledge : std::uint8_t {
        Known,   ///< FrontWatch tells who is in front
        Unknown, ///< nobody does
    };

    std::string_view text;           ///< whole sentences; empty where nothing is amiss
    bool offersTheExtension = false; ///< GnomeExtension::switchOn() would help

    [[nodiscard]] static FrontAdvice about(Knowledge knowledge, GnomeExtension::State extension);
};

} // namespace pallistrom
