// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/controls/Badge.h"

#include "views/style/TextStyle.h"
#include "views/style/Tone.h"
#include "views/style/drawing.h"

#include <QPainter>

namespace pallistrom {

namespace {

constexpr QMargins padding(6, 1, 6, 1);
constexpr double backgroundOpacity = 0.15;

} // namespace

Badge::Badge(const QString& text) {
    setTextFormat(Qt::PlainText);
    setFont(fontOf(TextStyle::Badge));
    setContentsMargins(padding);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setText(text);
}

void Badge::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QColor tint = colourOf(Tone::Tint, palette());
    fillCapsule(painter, rect(), atOpacity(tint, backgroundOpacity));
    painter.setPen(tint);
    painter.drawText(contentsRect(), Qt::AlignCenter, text());
}

} // namespace pallistrom
