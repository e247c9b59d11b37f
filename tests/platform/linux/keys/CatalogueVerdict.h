// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/VerdictChords.h"

namespace pallistrom {

/// Returns what the rules of the catalogue say of a key event when all switches are on.
[[nodiscard]] VerdictChords catalogueVerdict(const CGEvent& event);

} // namespace pallistrom
