// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QKeySequence>
#include <QString>

#include <string_view>

/// How the texts of a menu are written for Qt, and for the panels that Qt hands them to.
namespace pallistrom::MenuText {

/// Returns a title with nothing in it that Qt or a panel takes for the mark of an access key.
[[nodiscard]] QString label(std::string_view title);

/// Returns the keys for a key equivalent: control with that character. The command key of programs
/// on Linux desktops is control: Ctrl+Q and Ctrl+comma are what people know for these items, while
/// the key that sits where command does belongs to the desktop.
[[nodiscard]] QKeySequence keys(std::string_view keyEquivalent);

} // namespace pallistrom::MenuText
