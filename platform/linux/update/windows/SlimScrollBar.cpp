// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/windows/SlimScrollBar.h"

#include "platform/linux/update/windows/Paint.h"

#include <QPainter>

#include <algorithm>

namespace pallistrom {

namespace {

constexpr int thickness = 12;
constexpr int inset = 3; // of the thumb, from each side
constexpr int shortestThumb = 24;

} // namespace

QSize SlimScrollBar::sizeHint() const {
    return {thickness, 3 * thickness};
}

void SlimScrollBar::paintEvent(QPaintEvent* /*event*/) {
    const double all = maximum() - minimum() + pageStep();
    const double room = height() - 2.0 * inset;
    if (maximum() <= minimum() || all <= 0) {
        return;
    }
    const double length = std::min(room, std::max<double>(shortestThumb, room * pageStep() / all));
    const double top = (room - length) * (value() - minimum()) / (maximum() - minimum());
    const QRectF thumb(inset, inset + top, thickness - 2 * inset, length);
    QPainter painter(this);
    Paint::fill(painter, thumb, thumb.width() / 2, Paint::colour(Paint::Use::Thumb, palette()));
}

} // namespace pallistrom
