// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ShortcutDef.h"
#include "platform/Menu.h"

#include <memory>
#include <span>

namespace pallistrom {

/// Returns the status menu as it has to look now: a warning unless `trusted`, a switch for each of
/// `shortcuts` as the preferences hold it, and the program's windows and services. The warning
/// names no target, the rest `target`.
[[nodiscard]] NSMenu statusMenu(bool trusted,
                                std::span<const ShortcutDef> shortcuts,
                                const std::weak_ptr<ActionTarget>& target);

} // namespace pallistrom
