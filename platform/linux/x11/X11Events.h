// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/X11Connection.h"

#include <functional>

namespace pallistrom {

/// Takes every event that has come in, without waiting. Returns whether one of them `matters`. To
/// be called again while it does: what is asked of the server meanwhile may have brought others
/// along, and those wake nobody.
[[nodiscard]] bool
takeX11Events(const X11Connection& connection,
              const std::function<bool(const xcb_generic_event_t& event)>& matters);

} // namespace pallistrom
