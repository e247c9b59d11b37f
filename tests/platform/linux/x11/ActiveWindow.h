// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "XConnection.h"

#include <string>

namespace pallistrom {

/// Does what a window manager does when a window of that class comes to the front.
void bringToFront(const e2e::XConnection& connection, const std::string& windowClass);

/// The same between two windows, and while a launcher has the keyboard.
void bringNobodyToFront(const e2e::XConnection& connection);

} // namespace pallistrom
