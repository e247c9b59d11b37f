// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Menu.h"

#include <string_view>

/// Carries out what the items of the status menu stand for.
namespace pallistrom::MenuActions {

/// Names the menu whose actions can be asked for by name.
void setMenu(NSMenu menu);

/// Sends the action of `item` to its target, or where there is none to the application's delegate.
void perform(const NSMenuItem& item);

/// Carries out the enabled item whose selector, without its colon, is `name`, and whose represented
/// object is `parameter`. Does nothing if the menu has none.
void perform(std::string_view name, std::string_view parameter);

} // namespace pallistrom::MenuActions
