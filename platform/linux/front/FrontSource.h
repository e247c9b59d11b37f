// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontReport.h"

#include <cstdint>

namespace pallistrom {

/// One way in which a session can tell which window is in front. A source is told of changes and
/// never asks again and again; one that breaks tries anew by itself. It is made with a function
/// that it calls, from the run loop, whenever report() has become another. Main thread only.
class FrontSource {
public:
    FrontSource() = default;
    FrontSource(const FrontSource&) = delete;
    FrontSource& operator=(const FrontSource&) = delete;
    virtual ~FrontSource() = default;

    [[nodiscard]] virtual FrontReport report() const = 0;

    enum class Wanted : std::uint8_t { No, Yes };

    /// Says whether anybody looks at report(), which is of no interest while a better source can
    /// tell. One that is not wanted may stop, and be unknown from now on, without a word.
    virtual void setWanted(Wanted /*wanted*/) {}
};

} // namespace pallistrom
