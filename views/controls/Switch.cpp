// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/controls/Switch.h"

#include "platform/Workspace.h"
#include "views/style/Tone.h"
#include "views/style/drawing.h"

#include <QPainter>

namespace pallistrom {

namespace {

constexpr QSize trackSize(38, 22);
constexpr double knobInset = 2;
constexpr int slideMilliseconds = 150;

} // namespace

Switch::Switch() : Focusable(trackSize.height() / 2.0), m_slide(this) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_slide.setDuration(slideMilliseconds);
    m_slide.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&m_slide, &QVariantAnimation::valueChanged, this, [this] { update(); });
}

void Switch::showValue(bool isOn) {
    if (isOn != isChecked()) {
        m_slide.stop();
        setChecked(isOn);
    }
}

QSize Switch::sizeHint() const {
    return trackSize;
}

QSize Switch::minimumSizeHint() const {
    return trackSize;
}

bool Switch::hitButton(const QPoint& position) const {
    return rect().contains(position);
}

void Switch::nextCheckState() {
    if (!accessibilityDisplayShouldReduceMotion()) {
        m_slide.setStartValue(position());
        m_slide.setEndValue(isChecked() ? 0.0 : 1.0);
        m_slide.start();
    }
    QCheckBox::nextCheckState();
}

double Switch::position() const {
    if (m_slide.state() == QAbstractAnimation::Running) {
        return m_slide.currentValue().toDouble();
    }
    return isChecked() ? 1 : 0;
}

void Switch::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRectF track{QPointF(), QSizeF(trackSize)};
    const double on = position();
    fillCapsule(painter, track, atOpacity(colourOf(Tone::SwitchOff, palette()), 1 - on));
    fillCapsule(painter, track, atOpacity(colourOf(Tone::Tint, palette()), on));
    if (isDown()) {
        fillCapsule(painter, track, colourOf(Tone::Pressed, palette()));
    }

    const double diameter = track.height() - 2 * knobInset;
    const double way = track.width() - track.height();
    const double along = layoutDirection() == Qt::RightToLeft ? 1 - on : on;
    const QRectF knob(knobInset + along * way, knobInset, diameter, diameter);
    const QColor shadow = colourOf(Tone::KnobShadow, palette());
    fillCapsule(painter, knob.adjusted(-0.5, 0, 0.5, 1), shadow);
    fillCapsule(painter, knob, colourOf(Tone::Knob, palette()));
}

} // namespace pallistrom
