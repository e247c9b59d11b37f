// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/controls/FocusRing.h"

#include "views/controls/AccessibleRole.h"
#include "views/style/Tone.h"
#include "views/style/drawing.h"

#include <QEvent>
#include <QPainter>

namespace pallistrom {

namespace {

constexpr int thickness = 3;
constexpr int gap = 1;

} // namespace

FocusRing::FocusRing(QWidget* window) : QWidget(window) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setDecorative(*this);
}

FocusRing* FocusRing::find(const QWidget& control) {
    return control.window()->findChild<FocusRing*>({}, Qt::FindDirectChildrenOnly);
}

void FocusRing::enter(QWidget& control, double cornerRadius, Qt::FocusReason reason) {
    FocusRing* ring = find(control);
    if (ring == nullptr) {
        ring = new FocusRing(control.window());
        // A window that opens is calm; its first Tab shows where the focus is.
        ring->m_wasBroughtByMouse = true;
    }
    // A window that comes back, or a menu that closes, shows what it showed before.
    if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
        ring->m_wasBroughtByMouse = reason == Qt::MouseFocusReason;
    }
    ring->surround(control, cornerRadius);
}

void FocusRing::leave(const QWidget& control) {
    FocusRing* const ring = find(control);
    if (ring != nullptr && ring->m_control == &control) {
        ring->watch(false);
        ring->m_control = nullptr;
        ring->hide();
    }
}

void FocusRing::surround(QWidget& control, double cornerRadius) {
    watch(false);
    m_control = &control;
    m_cornerRadius = cornerRadius;
    watch(true);
    place();
}

// The control, and all that can move it.
void FocusRing::watch(bool watches) {
    for (QWidget* each = m_control; each != nullptr && each != parentWidget();
         each = each->parentWidget()) {
        if (watches) {
            each->installEventFilter(this);
        } else {
            each->removeEventFilter(this);
        }
    }
}

void FocusRing::place() {
    if (m_control == nullptr || m_wasBroughtByMouse || !m_control->isVisibleTo(parentWidget())) {
        hide();
        return;
    }
    constexpr int outside = thickness + gap;
    const QPoint topLeft = m_control->mapTo(parentWidget(), QPoint());
    setGeometry(QRect(topLeft, m_control->size())
                    .marginsAdded(QMargins(outside, outside, outside, outside)));
    raise();
    show();
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        m_wasBroughtByMouse = false;
        place();
        break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
        place();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void FocusRing::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    constexpr double middle = thickness / 2.0;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colourOf(Tone::FocusRing, palette()), thickness));
    const double radius = m_cornerRadius + gap + middle;
    painter.drawRoundedRect(
        onDevicePixels(painter, rect()).adjusted(middle, middle, -middle, -middle), radius, radius);
}

} // namespace pallistrom
