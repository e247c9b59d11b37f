// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ViewTest.h"

#include "engine/Preferences.h"
#include "engine/ShortcutLibrary.h"
#include "views/LoginToggle.h"
#include "views/controls/Switch.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QPalette>
#include <QPixmap>
#include <QSignalSpy>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <ostream>

void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

void PrintTo(const QPoint& point, std::ostream* out) {
    *out << '(' << point.x() << ", " << point.y() << ')';
}

void PrintTo(const QSize& size, std::ostream* out) {
    *out << size.width() << " x " << size.height();
}

void PrintTo(const QRect& rect, std::ostream* out) {
    PrintTo(rect.size(), out);
    *out << " at ";
    PrintTo(rect.topLeft(), out);
}

namespace pallistrom {

namespace {

// What stands in one line differs by less than that in height.
constexpr int line = 6;

QPalette blackOnWhite() {
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::white);
    palette.setColor(QPalette::WindowText, Qt::black);
    palette.setColor(QPalette::Highlight, Qt::blue);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

} // namespace

ViewTest::ViewTest() : state(AppState::shared()) {
    platform.reducesMotion = true;
    Preferences::registerDefaults(ShortcutLibrary::all);
    QApplication::setPalette(blackOnWhite());
    state.refresh();
}

void ViewTest::TearDown() {
    QApplication::setPalette(QPalette());
}

void ViewTest::setTrusted(bool trusted) {
    platform.trusted = trusted;
    state.refresh();
    settle();
}

void ViewTest::settle() {
    platform.runMainQueue();
    QApplication::sendPostedEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
}

void ViewTest::show(QWidget& window) {
    window.show();
    window.activateWindow();
    settle();
    ASSERT_EQ(QApplication::activeWindow(), &window);
}

void ViewTest::expectLoginSwitchShowsWhatCameOfIt(QWidget& view) {
    Switch& control = only<LoginToggle>(view).control();
    platform.loginItemRefusal = NSError{.localizedDescription = "no"};
    const QSignalSpy published(&state, &AppState::objectWillChange);
    control.click();
    EXPECT_EQ(published.count(), 0);
    EXPECT_FALSE(control.isChecked()) << "springs back by itself";

    platform.loginItemRefusal.reset();
    control.click();
    EXPECT_TRUE(control.isChecked());
    EXPECT_EQ(platform.loginItemStatus, SMAppServiceStatus::SMAppServiceStatusEnabled);
}

QRect placeOf(const QWidget& widget, const QWidget& above) {
    return {widget.mapTo(&above, QPoint()), widget.size()};
}

QColor pixelOf(QWidget& widget, QPoint place) {
    const QImage image = widget.grab().toImage();
    const QPointF pixel = (QPointF(place) + QPointF(0.5, 0.5)) * image.devicePixelRatio();
    return image.pixelColor(static_cast<int>(pixel.x()), static_cast<int>(pixel.y()));
}

QColor onWhite(const QColor& colour, double opacity) {
    const auto mix = [opacity](int part) {
        return static_cast<int>(std::lround(255 + (part - 255) * opacity));
    };
    return {mix(colour.red()), mix(colour.green()), mix(colour.blue())};
}

testing::AssertionResult isColour(const QColor& actual, const QColor& expected) {
    constexpr int rounding = 2;
    const int difference = std::max({std::abs(actual.red() - expected.red()),
                                     std::abs(actual.green() - expected.green()),
                                     std::abs(actual.blue() - expected.blue())});
    if (difference <= rounding) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << qPrintable(actual.name()) << " is not " << qPrintable(expected.name());
}

std::vector<QString> visibleTexts(const QWidget& window) {
    std::vector<std::pair<QPoint, QString>> found;
    for (const QWidget* const each : window.findChildren<QWidget*>()) {
        if (!each->isVisibleTo(&window)) {
            continue;
        }
        const QPoint middle = placeOf(*each, window).center();
        if (const auto* const label = qobject_cast<const QLabel*>(each)) {
            found.emplace_back(middle, label->text());
        } else if (const auto* const button = qobject_cast<const QAbstractButton*>(each);
                   button != nullptr && !button->text().isEmpty()) {
            found.emplace_back(middle, button->text());
        }
    }
    std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) {
        const int rowA = a.first.y() / line;
        const int rowB = b.first.y() / line;
        return rowA != rowB ? rowA < rowB : a.first.x() < b.first.x();
    });
    std::vector<QString> texts;
    texts.reserve(found.size());
    for (auto& each : found) {
        texts.push_back(std::move(each.second));
    }
    return texts;
}

} // namespace pallistrom
