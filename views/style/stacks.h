// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QBoxLayout>

class QWidget;

namespace pallistrom {

/// Returns a layout from top to bottom that adds no room of its own around its items. It belongs to
/// `owner`, or to the layout that it is put into.
[[nodiscard]] QVBoxLayout* makeColumn(int spacing, QWidget* owner = nullptr);

/// The same from the leading to the trailing edge.
[[nodiscard]] QHBoxLayout* makeRow(int spacing, QWidget* owner = nullptr);

} // namespace pallistrom
