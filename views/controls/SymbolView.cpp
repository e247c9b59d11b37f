// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/controls/SymbolView.h"

#include "views/controls/AccessibleRole.h"
#include "views/style/drawing.h"

#include <QPainter>

#include <cmath>
#include <cstring>

namespace pallistrom {

SymbolView::SymbolView(std::string_view symbolName, int size, Tone tone)
    : m_symbol(imageWithSystemSymbolName(symbolName, {})), m_size(size), m_tone(tone) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setDecorative(*this);
    if (m_symbol) {
        m_hint = drawn(m_size).size();
    }
    if (m_hint.isEmpty()) {
        hide();
    }
}

QSize SymbolView::sizeHint() const {
    return m_hint;
}

QSize SymbolView::minimumSizeHint() const {
    return m_hint;
}

QImage SymbolView::drawn(int height) const {
    const SymbolCoverage coverage = drawSymbol(*m_symbol, height);
    QImage image(coverage.width, coverage.height, QImage::Format_Alpha8);
    const auto width = static_cast<std::size_t>(coverage.width);
    for (int y = 0; y < coverage.height; ++y) {
        std::memcpy(
            image.scanLine(y), &coverage.pixels[static_cast<std::size_t>(y) * width], width);
    }
    return image;
}

void SymbolView::paintEvent(QPaintEvent* /*event*/) {
    if (m_hint.isEmpty()) {
        return;
    }
    QPainter painter(this);
    // Drawn for the pixels of the screen, and again where a window has moved to another one.
    const double scale = painter.deviceTransform().m22();
    const QRectF place = onDevicePixels(painter, QRectF(0, 0, m_size, m_size));
    const int height = static_cast<int>(std::lround(place.height() * scale));
    if (m_coverage.height() != height) {
        m_coverage = drawn(height);
    }
    QImage image = m_coverage.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    {
        QPainter ink(&image);
        ink.setCompositionMode(QPainter::CompositionMode_SourceIn);
        ink.fillRect(image.rect(), colourOf(m_tone, palette()));
    }
    image.setDevicePixelRatio(scale);
    painter.drawImage(place.topLeft(), image);
}

} // namespace pallistrom
