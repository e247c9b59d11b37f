// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/controls/KeyCap.h"

#include "views/controls/AccessibleRole.h"
#include "views/style/ModifierGlyph.h"
#include "views/style/TextStyle.h"
#include "views/style/Tone.h"
#include "views/style/drawing.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace pallistrom {

namespace {

constexpr int minimumTextWidth = 42;
constexpr QMargins padding(8, 3, 8, 3);
constexpr double cornerRadius = 6;
constexpr double backgroundOpacity = 0.5;

double widthOf(const QString& label, const QFontMetricsF& metrics) {
    double width = 0;
    for (const QChar each : label) {
        width += ModifierGlyph::isOne(each) ? ModifierGlyph::width(metrics)
                                            : metrics.horizontalAdvance(each);
    }
    return width;
}

} // namespace

KeyCap::KeyCap(const QString& label) : m_label(label) {
    setFont(fontOf(TextStyle::KeyCap));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleRole(*this, QAccessible::StaticText);
    setAccessibleName(label);
}

QSize KeyCap::sizeHint() const {
    const int wanted = static_cast<int>(std::ceil(widthOf(m_label, QFontMetricsF(font()))));
    return QSize(std::max(minimumTextWidth, wanted), fontMetrics().height()).grownBy(padding);
}

QSize KeyCap::minimumSizeHint() const {
    return sizeHint();
}

void KeyCap::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    fillRounded(painter,
                rect(),
                cornerRadius,
                atOpacity(colourOf(Tone::QuaternaryLabel, palette()), backgroundOpacity));

    const QFontMetricsF metrics(font());
    const QColor colour = colourOf(Tone::Primary, palette());
    QPointF baseline(padding.left(), padding.top() + fontMetrics().ascent());
    if (layoutDirection() == Qt::RightToLeft) {
        baseline.setX(width() - padding.left() - widthOf(m_label, metrics));
    }
    for (const QChar each : m_label) {
        if (ModifierGlyph::isOne(each)) {
            ModifierGlyph::draw(painter, each, baseline, metrics, colour);
            baseline.rx() += ModifierGlyph::width(metrics);
        } else {
            painter.setPen(colour);
            painter.drawText(baseline, QString(each));
            baseline.rx() += metrics.horizontalAdvance(each);
        }
    }
}

} // namespace pallistrom
