// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/symbols/Drawing.h"

#include "platform/Precondition.h"
#include "platform/linux/QtText.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>
#include <iterator>

// A macro that may not stand in a namespace: the linker leaves out the resources of a static
// library that nobody names.
static void initialiseResources() {
    Q_INIT_RESOURCE(symbols);
}

namespace pallistrom::Drawing {

namespace {

constexpr int largestHeight = 4096;

} // namespace

QString file(std::string_view name) {
    initialiseResources();
    return QStringLiteral(":/%1.svg").arg(qtText(name));
}

bool exists(std::string_view name) {
    return QFile::exists(file(name));
}

std::optional<SymbolCoverage> draw(std::string_view name, int height) {
    precondition(height >= 1 && height <= largestHeight, "a symbol of an impossible height");
    if (!exists(name)) {
        return std::nullopt;
    }
    QSvgRenderer drawing(file(name));
    const QSizeF shape = drawing.viewBoxF().size();
    precondition(drawing.isValid() && !shape.isEmpty(), "a symbol that is no drawing");
    const int width =
        std::max(1, static_cast<int>(std::lround(height * shape.width() / shape.height())));
    QImage canvas(width, height, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    drawing.render(&painter, QRectF(0, 0, width, height));
    painter.end();

    SymbolCoverage coverage{.width = width, .height = height, .pixels = {}};
    coverage.pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y) {
        const auto* const line = reinterpret_cast<const QRgb*>(canvas.constScanLine(y));
        std::transform(line, line + width, std::back_inserter(coverage.pixels), [](QRgb pixel) {
            return static_cast<std::uint8_t>(qAlpha(pixel));
        });
    }
    return coverage;
}

} // namespace pallistrom::Drawing
