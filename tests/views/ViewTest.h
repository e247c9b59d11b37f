// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FakePlatform.h"
#include "shell/state/AppState.h"

#include <QColor>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QWidget>

#include <gtest/gtest.h>

#include <cstdlib>
#include <iosfwd>
#include <string_view>
#include <vector>

// GoogleTest would show their bytes.
void PrintTo(const QString& text, std::ostream* out);
void PrintTo(const QPoint& point, std::ostream* out);
void PrintTo(const QSize& size, std::ostream* out);
void PrintTo(const QRect& rect, std::ostream* out);

namespace pallistrom {

/// A desktop on which views can be shown: black on white, without animations until a test wants
/// them. The state is the program's one, as pills and rows find it by themselves.
class ViewTest : public testing::Test {
protected:
    ViewTest();
    void TearDown() override;

    /// Lets the system give or take the permission, and the state find out.
    void setTrusted(bool trusted);

    /// Lets everything happen that waits for a later turn of the loop.
    void settle();

    /// Shows a window in front, laid out.
    void show(QWidget& window);

    /// Lets the system refuse a change of the login item, and then not, and looks at the switch of
    /// `view`.
    void expectLoginSwitchShowsWhatCameOfIt(QWidget& view);

    fake::Platform platform;
    AppState& state;
};

/// Returns where a widget lies in another one above it.
QRect placeOf(const QWidget& widget, const QWidget& above);

/// Returns the colour of a widget's pixel, on the white of its window.
QColor pixelOf(QWidget& widget, QPoint place);

/// Returns what `colour` at `opacity` is on white.
QColor onWhite(const QColor& colour, double opacity);

/// Says whether two colours differ by no more than rounding.
testing::AssertionResult isColour(const QColor& actual, const QColor& expected);

/// Returns the widget of a kind that shows `text`, which must be there.
template<class Widget>
Widget& showing(QWidget& window, std::string_view text) {
    const auto wanted = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    for (Widget* const each : window.findChildren<Widget*>()) {
        if (each->text() == wanted) {
            return *each;
        }
    }
    ADD_FAILURE() << "nothing says: " << text;
    std::abort();
}

/// Returns the only widget of a kind, which must be there.
template<class Widget>
Widget& only(QWidget& window) {
    const auto found = window.findChildren<Widget*>();
    EXPECT_EQ(found.size(), 1);
    return *found.at(0);
}

/// Returns the texts that a person can see, from top to bottom.
std::vector<QString> visibleTexts(const QWidget& window);

} // namespace pallistrom
