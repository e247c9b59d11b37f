// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

/// How the tap learns that a switch may have changed: it decides ahead of each press which keys it
/// takes. Main thread only.
namespace pallistrom::SettingsChanges {

/// Names the one function that is called after each change; an empty one for none.
void setObserver(std::function<void()> observer);

/// Calls the observer, if there is one.
void tell();

} // namespace pallistrom::SettingsChanges
