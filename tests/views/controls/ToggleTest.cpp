// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/controls/Toggle.h"

#include "ViewTest.h"
#include "views/controls/Switch.h"
#include "views/controls/Text.h"

#include <QTest>

namespace pallistrom {

namespace {

class ToggleTest : public ViewTest {
protected:
    ToggleTest()
        : toggle(new Text(QStringLiteral("Label"), TextStyle::Body),
                 QStringLiteral("Label"),
                 {.get = [this] { return value; },
                  .set =
                      [this](bool wanted) {
                          ++writes;
                          value = isRefused ? value : wanted;
                      }},
                 Toggle::Width::Fitting) {
        show(toggle);
    }

    bool value = false;
    bool isRefused = false;
    int writes = 0;
    Toggle toggle;
};

TEST_F(ToggleTest, showsAndWritesItsBinding) {
    EXPECT_FALSE(toggle.control().isChecked());
    toggle.control().click();
    EXPECT_TRUE(value);
    EXPECT_TRUE(toggle.control().isChecked());
    EXPECT_EQ(writes, 1);
}

TEST_F(ToggleTest, springsBackAtOnceWhereTheChangeIsRefused) {
    isRefused = true;
    toggle.control().click();
    EXPECT_EQ(writes, 1);
    EXPECT_FALSE(toggle.control().isChecked());
}

TEST_F(ToggleTest, writesNothingWhenItOnlyReads) {
    value = true;
    toggle.readAgain();
    EXPECT_TRUE(toggle.control().isChecked());
    EXPECT_EQ(writes, 0);
}

TEST_F(ToggleTest, takesAClickOnItsLabelThatEndsThere) {
    auto& label = showing<Text>(toggle, "Label");
    QTest::mouseClick(&label, Qt::LeftButton);
    EXPECT_TRUE(value);
    QTest::mouseClick(&label, Qt::RightButton);
    EXPECT_TRUE(value);
    QTest::mousePress(&label, Qt::LeftButton);
    QTest::mouseRelease(&toggle, Qt::LeftButton, Qt::NoModifier, QPoint(-20, -20));
    EXPECT_TRUE(value);
}

} // namespace

} // namespace pallistrom
