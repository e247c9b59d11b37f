// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/windows/ActionButton.h"

#include "platform/linux/update/windows/Paint.h"

#include <QFocusEvent>
#include <QPainter>

#include <algorithm>

namespace pallistrom {

namespace {

constexpr double cornerRadius = 6;
constexpr double ringWidth = 2;
constexpr int sidePadding = 12;
constexpr int leastHeight = 24;
constexpr int linePadding = 5;

} // namespace

ActionButton::ActionButton(const QString& title, QWidget* parent) : QPushButton(title, parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize ActionButton::sizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    const QSize bezel(metrics.horizontalAdvance(text()) + 2 * sidePadding,
                      std::max(leastHeight, metrics.height() + 2 * linePadding));
    return bezel.grownBy(QMargins(ringRoom, ringRoom, ringRoom, ringRoom));
}

void ActionButton::paintEvent(QPaintEvent* /*event*/) {
    using enum Paint::Use;
    QPainter painter(this);
    const QRectF bezel =
        QRectF(rect()).marginsRemoved(QMarginsF(ringRoom, ringRoom, ringRoom, ringRoom));
    if (!isEnabled()) {
        painter.setOpacity(0.5);
    }
    if (m_showsRing) {
        Paint::outline(painter,
                       rect(),
                       cornerRadius + ringRoom,
                       ringWidth,
                       Paint::colour(FocusRing, palette()));
    }
    const bool isAccented = isDefault();
    Paint::fill(
        painter, bezel, cornerRadius, Paint::colour(isAccented ? Accent : ButtonFill, palette()));
    if (isDown()) {
        Paint::fill(painter, bezel, cornerRadius, Paint::colour(Pressed, palette()));
    }
    if (!isAccented) {
        Paint::outline(painter, bezel, cornerRadius, 0, Paint::colour(ButtonEdge, palette()));
    }
    painter.setPen(Paint::colour(isAccented ? OnAccent : Words, palette()));
    painter.drawText(rect(), Qt::AlignCenter, text());
}

void ActionButton::focusInEvent(QFocusEvent* event) {
    m_showsRing = event->reason() == Qt::TabFocusReason ||
                  event->reason() == Qt::BacktabFocusReason ||
                  event->reason() == Qt::ShortcutFocusReason;
    QPushButton::focusInEvent(event);
}

void ActionButton::focusOutEvent(QFocusEvent* event) {
    m_showsRing = false;
    QPushButton::focusOutEvent(event);
}

} // namespace pallistrom
