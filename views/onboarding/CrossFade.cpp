// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/onboarding/CrossFade.h"

#include "views/controls/AccessibleRole.h"

#include <QPainter>

namespace pallistrom {

namespace {

constexpr int milliseconds = 250;

} // namespace

void CrossFade::begin(QWidget& below) {
    // The one before has not come to its end when a user is in a hurry.
    delete below.findChild<CrossFade*>({}, Qt::FindDirectChildrenOnly);
    auto* const fade = new CrossFade(below);
    fade->show();
}

CrossFade::CrossFade(QWidget& below) : QWidget(&below), m_before(below.grab()), m_opacity(this) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setDecorative(*this);
    resize(below.size());
    m_opacity.setDuration(milliseconds);
    m_opacity.setEasingCurve(QEasingCurve::InOutQuad);
    m_opacity.setStartValue(1.0);
    m_opacity.setEndValue(0.0);
    connect(&m_opacity, &QVariantAnimation::valueChanged, this, [this] { update(); });
    connect(&m_opacity, &QVariantAnimation::finished, this, &QObject::deleteLater);
    m_opacity.start();
}

void CrossFade::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setOpacity(m_opacity.currentValue().toDouble());
    painter.drawPixmap(0, 0, m_before);
}

} // namespace pallistrom
