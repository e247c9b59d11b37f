// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontReport.h"

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
};

} // namespace pallistrom
