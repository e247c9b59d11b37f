// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>

#include <cstdint>

class QWidget;

namespace pallistrom {

/// What assistive technology sees of the parts of a widget.
enum class AccessibleParts : std::uint8_t {
    Shown,
    Hidden, ///< the widget speaks for them
};

/// Gives a drawn widget the role that fits what is drawn. Its name is the accessible name. To be
/// called by the widget's constructor.
void setAccessibleRole(QWidget& widget,
                       QAccessible::Role role,
                       AccessibleParts parts = AccessibleParts::Shown);

/// Hides a widget that only decorates.
void setDecorative(QWidget& widget);

/// Sets the accessible name, and tells if it is another one.
void changeAccessibleName(QWidget& widget, const QString& name);

} // namespace pallistrom
