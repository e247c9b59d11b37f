// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/statusitem/TrayIcon.h"

#include "pallistrom/Names.h"
#include "platform/linux/QtText.h"
#include "platform/linux/symbols/Drawing.h"

#include <QImage>
#include <QPixmap>

namespace pallistrom {

namespace {

/// Four to one against white as well as against black.
constexpr QRgb seenOnEverything = qRgb(0x80, 0x80, 0x80);

QString nameOf(const NSImage& image) {
    const QString application = qtText(Names::applicationId);
    if (image.symbolName == "delete.left") {
        return application + QStringLiteral("-symbolic");
    }
    if (image.symbolName == "exclamationmark.triangle") {
        return application + QStringLiteral("-warning-symbolic");
    }
    return {};
}

QPixmap painted(const SymbolCoverage& symbol) {
    QImage picture(symbol.width, symbol.height, QImage::Format_ARGB32);
    auto coverage = symbol.pixels.begin();
    for (int y = 0; y < symbol.height; ++y) {
        for (int x = 0; x < symbol.width; ++x, ++coverage) {
            picture.setPixel(x, y, (seenOnEverything & RGB_MASK) | (QRgb{*coverage} << 24U));
        }
    }
    return QPixmap::fromImage(picture);
}

QIcon nothing() {
    QPixmap pixel(1, 1);
    pixel.fill(Qt::transparent);
    return {pixel};
}

} // namespace

QIcon trayIcon(const std::optional<NSImage>& image) {
    if (!image) {
        return nothing();
    }
    const QString name = nameOf(*image);
    QIcon fallback;
    for (const int side : {16, 22, 24, 32, 48, 64}) {
        const auto drawing = Drawing::draw("tray/" + name.toStdString(), side);
        fallback.addPixmap(painted(drawing ? *drawing : drawSymbol(*image, side)));
    }
    return name.isEmpty() ? fallback : QIcon::fromTheme(name, fallback);
}

} // namespace pallistrom
