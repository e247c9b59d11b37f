// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/controls/PushButton.h"

#include "views/style/TextStyle.h"
#include "views/style/Tone.h"
#include "views/style/drawing.h"

#include <QPainter>

namespace pallistrom {

namespace {

constexpr double cornerRadius = 6;
constexpr int standardHeight = 24;
constexpr int largeHeight = 32;
constexpr int sidePadding = 12;
constexpr int leastSidePadding = 6; // where a long text leaves no more
constexpr int minimumTextWidth = 40;

} // namespace

PushButton::PushButton(const QString& title, Kind kind) : Focusable(cornerRadius), m_kind(kind) {
    setFont(fontOf(TextStyle::Body));
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    setText(title);
}

// A font that is taller than ours makes the button taller, too.
QSize PushButton::sizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    const int width = std::max(minimumTextWidth, metrics.horizontalAdvance(text()));
    const int wanted = m_kind == Kind::Large ? largeHeight : standardHeight;
    return {width + 2 * sidePadding, std::max(wanted, metrics.height())};
}

QSize PushButton::minimumSizeHint() const {
    return sizeHint().shrunkBy(
        QMargins(sidePadding - leastSidePadding, 0, sidePadding - leastSidePadding, 0));
}

void PushButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const bool isDefault = m_kind == Kind::Default;
    const QRectF bezel = rect();
    fillRounded(
        painter, bezel, cornerRadius, colourOf(isDefault ? Tone::Tint : Tone::Button, palette()));
    if (isDown()) {
        fillRounded(painter, bezel, cornerRadius, colourOf(Tone::Pressed, palette()));
    }
    if (!isDefault) {
        strokeRounded(painter, bezel, cornerRadius, colourOf(Tone::ButtonBorder, palette()));
    }
    painter.setPen(colourOf(isDefault ? Tone::OnTint : Tone::Primary, palette()));
    painter.drawText(rect(), Qt::AlignCenter, text());
}

} // namespace pallistrom
