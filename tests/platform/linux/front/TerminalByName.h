// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/applications/WindowClass.h"
#include "platform/linux/front/FrontApplication.h"

namespace pallistrom {

/// The simplest list of applications: only those called "terminal" keep their keys.
inline FrontApplication terminalByName(const WindowClass& window) {
    return window.name == "terminal" ? FrontApplication::KeepsItsKeys
                                     : FrontApplication::TakesEditingKeys;
}

} // namespace pallistrom
