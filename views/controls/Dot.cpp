// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/controls/Dot.h"

#include "views/controls/AccessibleRole.h"
#include "views/style/drawing.h"

#include <QPainter>

namespace pallistrom {

Dot::Dot(int diameter) {
    setFixedSize(diameter, diameter);
    setDecorative(*this);
}

void Dot::setTone(Tone tone, double opacity) {
    if (tone != m_tone || opacity != m_opacity) {
        m_tone = tone;
        m_opacity = opacity;
        update();
    }
}

void Dot::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    fillCapsule(painter, rect(), atOpacity(colourOf(m_tone, palette()), m_opacity));
}

} // namespace pallistrom
