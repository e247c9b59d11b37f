// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/controls/Text.h"

#include "ViewTest.h"

#include <QApplication>
#include <QFontMetrics>

namespace pallistrom {

namespace {

using TextTest = ViewTest;

TEST_F(TextTest, isInOneLineWhereThereIsRoom) {
    const Text text(QStringLiteral("many words in one line that is really very very long, longer "
                                   "than any label of ours will ever be, I hope, and then some"),
                    TextStyle::Body);
    EXPECT_EQ(text.sizeHint().height(),
              Text(QStringLiteral("word"), TextStyle::Body).sizeHint().height());
    EXPECT_NEAR(text.sizeHint().width(), text.fontMetrics().horizontalAdvance(text.text()), 1);
}

TEST_F(TextTest, wrapsBetweenWordsWhereThereIsNot) {
    const Text text(QStringLiteral("many words"), TextStyle::Body);
    const int longest = text.fontMetrics().horizontalAdvance(QStringLiteral("words"));
    EXPECT_NEAR(text.minimumSizeHint().width(), longest, 3);
    EXPECT_GT(text.heightForWidth(longest + 5), text.sizeHint().height());
}

TEST_F(TextTest, keepsTheFamilyOfTheDesktopAndItsOwnSize) {
    Text text(QStringLiteral("a"), TextStyle::Headline);
    const QFont before = QApplication::font();
    QFont other(QStringLiteral("DejaVu Serif"));
    other.setPixelSize(30);
    QApplication::setFont(other);
    settle();
    EXPECT_EQ(text.font().family(), QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(text.font().pixelSize(), 13);
    EXPECT_TRUE(text.font().bold());
    QApplication::setFont(before);
}

TEST_F(TextTest, isDimWhereItIsSecondary) {
    Text full(QStringLiteral("█"), TextStyle::Greeting);
    Text dim(QStringLiteral("█"), TextStyle::Greeting, Tone::Secondary);
    full.resize(full.sizeHint());
    dim.resize(dim.sizeHint());
    EXPECT_TRUE(isColour(pixelOf(full, full.rect().center()), Qt::black));
    EXPECT_TRUE(isColour(pixelOf(dim, dim.rect().center()), onWhite(Qt::black, 0.55)));
}

TEST_F(TextTest, showsWhatLooksLikeMarkupAsItStands) {
    const Text text(QStringLiteral("<b>a</b> & b"), TextStyle::Body);
    EXPECT_NEAR(text.sizeHint().width(), text.fontMetrics().horizontalAdvance(text.text()), 1);
}

} // namespace

} // namespace pallistrom
