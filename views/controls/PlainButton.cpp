// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/controls/PlainButton.h"

#include "views/style/TextStyle.h"
#include "views/style/Tone.h"

#include <QPainter>

namespace pallistrom {

namespace {

constexpr double cornerRadius = 3;

} // namespace

PlainButton::PlainButton(const QString& title) : Focusable(cornerRadius) {
    setFont(fontOf(TextStyle::Body));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setText(title);
}

QSize PlainButton::sizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    return {metrics.horizontalAdvance(text()), metrics.height()};
}

QSize PlainButton::minimumSizeHint() const {
    return sizeHint();
}

void PlainButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(colourOf(isDown() ? Tone::Primary : Tone::Secondary, palette()));
    painter.drawText(rect(), Qt::AlignCenter, text());
}

} // namespace pallistrom
