// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/controls/AccessibleRole.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace pallistrom {

namespace {

constexpr auto roleProperty = "pallistromAccessibleRole";
constexpr auto partsProperty = "pallistromAccessibleParts";

/// What a widget says of itself by its properties.
class DescribedWidget final : public QAccessibleWidget {
public:
    explicit DescribedWidget(QWidget* widget)
        : QAccessibleWidget(
              widget, static_cast<QAccessible::Role>(widget->property(roleProperty).toInt())) {}

    [[nodiscard]] int childCount() const override {
        return hidesParts() ? 0 : QAccessibleWidget::childCount();
    }

    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        return hidesParts() ? nullptr : QAccessibleWidget::child(index);
    }

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        if (role() == QAccessible::NoRole) {
            state.invisible = true;
        }
        return state;
    }

private:
    [[nodiscard]] bool hidesParts() const {
        return widget()->property(partsProperty).toInt() ==
               static_cast<int>(AccessibleParts::Hidden);
    }
};

QAccessibleInterface* describe(const QString& /*className*/, QObject* object) {
    auto* const widget = qobject_cast<QWidget*>(object);
    return widget != nullptr && widget->property(roleProperty).isValid()
               ? new DescribedWidget(widget)
               : nullptr;
}

} // namespace

void setAccessibleRole(QWidget& widget, QAccessible::Role role, AccessibleParts parts) {
    QAccessible::installFactory(describe); // Once, however often it is called.
    widget.setProperty(roleProperty, static_cast<int>(role));
    widget.setProperty(partsProperty, static_cast<int>(parts));
}

void setDecorative(QWidget& widget) {
    setAccessibleRole(widget, QAccessible::NoRole, AccessibleParts::Hidden);
}

void changeAccessibleName(QWidget& widget, const QString& name) {
    if (widget.accessibleName() != name) {
        widget.setAccessibleName(name); // Tells by itself.
    }
}

} // namespace pallistrom
