// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ViewTest.h"
#include "views/StepDots.h"
#include "views/controls/Divider.h"
#include "views/controls/KeyCap.h"
#include "views/controls/PushButton.h"
#include "views/controls/Switch.h"
#include "views/controls/SymbolView.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <set>

namespace pallistrom {

namespace {

/// What is drawn, pixel by pixel of the screen. Also run at other scales than 1.
class Crisp : public ViewTest {
protected:
    using Make = std::function<std::unique_ptr<QWidget>()>;

    /// Returns pictures of a widget at places that fall differently between the screen's pixels.
    std::vector<QImage> picturesOf(const Make& make) {
        std::vector<QImage> pictures;
        for (int offset = 0; offset < 4; ++offset) {
            QWidget window;
            window.setFixedSize(200, 100);
            const auto widget = make();
            widget->setParent(&window);
            widget->setGeometry(QRect(QPoint(10 + offset, 10 + offset), widget->sizeHint()));
            show(window);
            pictures.push_back(window.grab().toImage());
            widget->setParent(nullptr);
        }
        return pictures;
    }

    /// Returns the colours on the way down through the column `x` (in pixels of the window).
    static std::vector<QRgb> column(const QImage& image, double x) {
        std::vector<QRgb> colours;
        colours.reserve(static_cast<std::size_t>(image.height()));
        for (int y = 0; y < image.height(); ++y) {
            colours.push_back(image.pixel(static_cast<int>(x * image.devicePixelRatio()), y));
        }
        return colours;
    }

    /// Returns how many pixels of a picture are not white.
    static std::pair<int, int> inkSize(const QImage& image) {
        QRect ink;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixel(x, y) != qRgb(255, 255, 255)) {
                    ink |= QRect(x, y, 1, 1);
                }
            }
        }
        return {ink.width(), ink.height()};
    }

    /// Expects the same picture, whatever the place.
    void expectSameSizeEverywhere(const Make& make) {
        const auto pictures = picturesOf(make);
        for (const QImage& picture : pictures) {
            EXPECT_EQ(inkSize(picture), inkSize(pictures.front()));
        }
    }
};

TEST_F(Crisp, edgesHaveNoPixelInBetween) {
    const auto makeCap = [] {
        return std::make_unique<KeyCap>(QStringLiteral("K"));
    };
    for (const QImage& picture : picturesOf(makeCap)) {
        const auto colours = column(picture, 55);
        EXPECT_EQ(std::set<QRgb>(colours.begin(), colours.end()).size(), 2U);
    }
}

TEST_F(Crisp, controlsAreOfOneSizeEverywhere) {
    expectSameSizeEverywhere([] { return std::make_unique<KeyCap>(QStringLiteral("K")); });
    expectSameSizeEverywhere([] { return std::make_unique<StepDots>(0, 1); });
    expectSameSizeEverywhere([] { return std::make_unique<PushButton>(QStringLiteral("Press")); });
    expectSameSizeEverywhere(
        [] { return std::make_unique<SymbolView>("lock.shield", 21, Tone::Tint); });
}

TEST_F(Crisp, linesAreWholePixelsThick) {
    const auto makeLine = [] {
        auto line = std::make_unique<Divider>();
        line->setMinimumWidth(50);
        return line;
    };
    for (const QImage& picture : picturesOf(makeLine)) {
        const auto colours = column(picture, 14);
        const auto inked = std::count_if(
            colours.begin(), colours.end(), [](QRgb each) { return each != qRgb(255, 255, 255); });
        EXPECT_EQ(inked, static_cast<int>(picture.devicePixelRatio()));
        EXPECT_EQ(std::set<QRgb>(colours.begin(), colours.end()).size(), 2U);
    }
}

TEST_F(Crisp, symbolsAreDrawnForThePixelsOfTheScreen) {
    const auto makeSymbol = [] {
        return std::make_unique<SymbolView>("lock.shield", 20, Tone::Tint);
    };
    for (const QImage& picture : picturesOf(makeSymbol)) {
        // The fake's symbol is a full square: scaled after it was drawn it would have soft edges.
        const auto colours = column(picture, 20);
        EXPECT_EQ(std::set<QRgb>(colours.begin(), colours.end()).size(), 2U);
        EXPECT_EQ(inkSize(picture).second, static_cast<int>(20 * picture.devicePixelRatio()));
    }
}

TEST_F(Crisp, dotsAreAsWideAsTheyAreHigh) {
    const auto makeDot = [] {
        return std::make_unique<StepDots>(0, 1);
    };
    for (const QImage& picture : picturesOf(makeDot)) {
        const auto [width, height] = inkSize(picture);
        EXPECT_EQ(width, height);
    }
}

} // namespace

} // namespace pallistrom
