// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <string>
#include <vector>

namespace pallistrom {

/// Returns what assistive technology finds in a window, in its order: a line for each object that
/// can be perceived, as "check box 'Delete word' on".
std::vector<std::string> accessibleTree(QWidget& window);

} // namespace pallistrom
