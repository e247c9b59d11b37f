// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/windows/ThinProgressBar.h"

#include "platform/Workspace.h"
#include "platform/linux/update/windows/Paint.h"

#include <QPainter>
#include <QTimerEvent>

#include <algorithm>
#include <cmath>

namespace pallistrom {

namespace {

constexpr int thickness = 6;
constexpr int shortest = 120;
constexpr int steps = 1000;
constexpr int frameMilliseconds = 33;
constexpr double roundTripMilliseconds = 2400;
constexpr double wanderingPart = 0.3;

// 0 at the leading edge, 1 at the trailing one; slow where it turns round.
double placeAfter(qint64 milliseconds) {
    constexpr double pi = 3.14159265358979323846;
    const double turn = static_cast<double>(milliseconds) / roundTripMilliseconds;
    return 0.5 - 0.5 * std::cos(2 * pi * turn);
}

} // namespace

ThinProgressBar::ThinProgressBar(QWidget* parent) : QProgressBar(parent) {
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setRange(0, 0);
}

void ThinProgressBar::setDone(std::uint64_t done, std::uint64_t all) {
    if (all == 0) {
        setRange(0, 0);
    } else {
        setRange(0, steps);
        const double part = static_cast<double>(std::min(done, all)) / static_cast<double>(all);
        setValue(static_cast<int>(part * steps));
    }
    moveOrRest();
}

QSize ThinProgressBar::sizeHint() const {
    return {shortest, thickness};
}

void ThinProgressBar::paintEvent(QPaintEvent* /*event*/) {
    constexpr double radius = thickness / 2.0;
    QPainter painter(this);
    Paint::fill(painter, rect(), radius, Paint::colour(Paint::Use::Track, palette()));
    const QRectF done = doneArea();
    if (done.width() > 0) {
        Paint::fill(painter, done, radius, Paint::colour(Paint::Use::Accent, palette()));
    }
}

QRectF ThinProgressBar::doneArea() const {
    QRectF area = rect();
    if (isBusy()) {
        const double place = isMoving() ? placeAfter(m_moving.elapsed()) : 0.5;
        const double length = area.width() * wanderingPart;
        area.setLeft(place * (area.width() - length));
        area.setWidth(length);
    } else {
        // Never shorter than its round ends, once there is anything.
        const double length = area.width() * std::max(0, value()) / maximum();
        area.setWidth(value() > 0 ? std::max<double>(length, thickness) : 0);
    }
    return area;
}

void ThinProgressBar::showEvent(QShowEvent* event) {
    QProgressBar::showEvent(event);
    moveOrRest();
}

void ThinProgressBar::hideEvent(QHideEvent* event) {
    m_timer.stop();
    QProgressBar::hideEvent(event);
}

void ThinProgressBar::timerEvent(QTimerEvent* event) {
    if (event->timerId() == m_timer.timerId()) {
        update();
    } else {
        QProgressBar::timerEvent(event);
    }
}

void ThinProgressBar::moveOrRest() {
    const bool moves = isBusy() && isVisible() && !accessibilityDisplayShouldReduceMotion();
    if (moves && !m_timer.isActive()) {
        m_moving.start();
        m_timer.start(frameMilliseconds, this);
    } else if (!moves) {
        m_timer.stop();
    }
    update();
}

} // namespace pallistrom
