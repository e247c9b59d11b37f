// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventTap.h"

namespace pallistrom {

/// The keyboard filter: called for each event that reaches the tap of `tapController`, returns
/// `event` to let it through, as it is or rewritten, or null to drop it. `proxy` and `userInfo` are
/// not used. Allocates nothing unless it posts keystrokes.
CGEventRef tapCallback(CGEventTapProxy proxy, CGEventType type, CGEventRef event, void* userInfo);

} // namespace pallistrom
