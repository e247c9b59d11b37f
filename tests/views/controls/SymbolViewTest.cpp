// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/controls/SymbolView.h"

#include "ViewTest.h"
#include "views/controls/Text.h"
#include "views/style/stacks.h"

#include <QApplication>
#include <QPalette>

namespace pallistrom {

namespace {

using SymbolViewTest = ViewTest;

TEST_F(SymbolViewTest, isAsHighAsItsSizeAndTintedByItsTone) {
    SymbolView symbol("lock.shield", 52, Tone::Tint);
    EXPECT_EQ(symbol.sizeHint(), QSize(52, 52));
    symbol.resize(symbol.sizeHint());
    for (const QPoint place : {QPoint(0, 0), QPoint(51, 51), QPoint(26, 26)}) {
        EXPECT_TRUE(isColour(pixelOf(symbol, place), Qt::blue));
    }
}

TEST_F(SymbolViewTest, followsTheColoursOfTheDesktop) {
    SymbolView symbol("lock.shield", 20, Tone::Tint);
    show(symbol);
    QPalette palette = QApplication::palette();
    palette.setColor(QPalette::Highlight, Qt::red);
    QApplication::setPalette(palette);
    settle();
    EXPECT_TRUE(isColour(pixelOf(symbol, QPoint(10, 10)), Qt::red));
}

TEST_F(SymbolViewTest, takesNoRoomWhereTheSystemHasNoSuchSymbol) {
    platform.missingSymbols = {"lock.shield"};
    QWidget window;
    QVBoxLayout* const column = makeColumn(10, &window);
    auto* const symbol = new SymbolView("lock.shield", 52, Tone::Tint);
    auto* const text = new Text(QStringLiteral("Text"), TextStyle::Body);
    column->addWidget(symbol);
    column->addWidget(text);
    show(window);
    EXPECT_FALSE(symbol->isVisible());
    EXPECT_EQ(text->y(), 0);
}

} // namespace

} // namespace pallistrom
