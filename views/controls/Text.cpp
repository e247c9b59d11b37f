// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/controls/Text.h"

#include <QFontMetrics>
#include <QPainter>

namespace pallistrom {

Text::Text(const QString& text, TextStyle style, Tone tone) : m_tone(tone) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setFont(fontOf(style));
    setText(text);
}

void Text::setTone(Tone tone) {
    if (tone != m_tone) {
        m_tone = tone;
        update();
    }
}

// QLabel would rather have a text in two lines than one that is long.
QSize Text::sizeHint() const {
    return sizeWithin(QWIDGETSIZE_MAX);
}

QSize Text::minimumSizeHint() const {
    return {sizeWithin(1).width(), sizeHint().height()};
}

int Text::heightForWidth(int width) const {
    return sizeWithin(width).height();
}

void Text::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(colourOf(m_tone, palette()));
    painter.drawText(rect(), static_cast<int>(alignment()) | Qt::TextWordWrap, text());
}

QSize Text::sizeWithin(int width) const {
    const QRect room(0, 0, width, QWIDGETSIZE_MAX);
    return fontMetrics().boundingRect(room, Qt::TextWordWrap, text()).size();
}

} // namespace pallistrom
