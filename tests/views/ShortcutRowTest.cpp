// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/ShortcutRow.h"

#include "ViewTest.h"
#include "engine/Preferences.h"
#include "engine/ShortcutLibrary.h"
#include "views/controls/Badge.h"
#include "views/controls/KeyCap.h"
#include "views/controls/Switch.h"
#include "views/controls/Text.h"

#include <QBoxLayout>
#include <QPointer>
#include <QTest>

namespace pallistrom {

namespace {

class ShortcutRowTest : public ViewTest {
protected:
    static const ShortcutDef& recommended() { return ShortcutLibrary::all[0]; }

    static const ShortcutDef& other() { return ShortcutLibrary::all[2]; }

    /// What the status menu does with one of its items.
    void changeElsewhere(std::string_view id, bool enabled) {
        Preferences::setEnabled(id, enabled);
        state.bumpPrefsVersion();
        settle();
    }
};

TEST_F(ShortcutRowTest, showsWhatTheCatalogueSays) {
    ShortcutRow row(recommended());
    EXPECT_EQ(visibleTexts(row),
              (std::vector{QStringLiteral("Delete word"),
                           QStringLiteral("Recommended"),
                           QStringLiteral("Erase the word before the cursor")}));
    EXPECT_EQ(only<KeyCap>(row).accessibleName(), QStringLiteral("⌃W"));
    EXPECT_TRUE(row.control().isChecked());
}

TEST_F(ShortcutRowTest, hasNoGapWhereABadgeWouldBe) {
    ShortcutRow row(other());
    EXPECT_TRUE(row.findChildren<Badge*>().isEmpty());
    EXPECT_EQ(visibleTexts(row),
              (std::vector{QStringLiteral("Delete to line end"),
                           QStringLiteral("Erase everything to the right of the cursor")}));
    const Text& title = showing<Text>(row, "Delete to line end");
    const int alone = title.fontMetrics().horizontalAdvance(title.text());
    EXPECT_NEAR(title.sizeHint().width(), alone, 1);
}

TEST_F(ShortcutRowTest, leavesTheTextsOfTheCatalogueAndOfTheKeyCapUntranslated) {
    platform.localizedStrings = {{"Delete word", "x"}, {"⌃W", "x"}, {"Recommended", "Empfohlen"}};
    ShortcutRow row(recommended());
    EXPECT_EQ(visibleTexts(row).at(0), QStringLiteral("Delete word"));
    EXPECT_EQ(visibleTexts(row).at(1), QStringLiteral("Empfohlen"));
    EXPECT_EQ(only<KeyCap>(row).accessibleName(), QStringLiteral("⌃W"));
}

TEST_F(ShortcutRowTest, writesThePreferenceAndCountsOnce) {
    ShortcutRow row(recommended());
    const auto version = state.prefsVersion();
    row.control().click();
    EXPECT_FALSE(Preferences::isEnabled("ctrlW"));
    EXPECT_EQ(state.prefsVersion(), version + 1);
    settle();
    EXPECT_FALSE(row.control().isChecked());
}

TEST_F(ShortcutRowTest, followsTheMenuWithoutBeingReopened) {
    ShortcutRow row(recommended());
    show(row);
    changeElsewhere("ctrlW", false);
    EXPECT_FALSE(row.control().isChecked());
    changeElsewhere("ctrlW", true);
    EXPECT_TRUE(row.control().isChecked());
}

TEST_F(ShortcutRowTest, followsTheRowOfAnotherWindow) {
    ShortcutRow here(recommended());
    ShortcutRow there(recommended());
    here.control().click();
    settle();
    EXPECT_FALSE(there.control().isChecked());
}

TEST_F(ShortcutRowTest, keepsTheKeyboardFocusOfItsSwitch) {
    ShortcutRow row(recommended());
    show(row);
    row.control().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&row.control(), Qt::Key_Space);
    settle();
    EXPECT_FALSE(Preferences::isEnabled("ctrlW"));
    EXPECT_TRUE(row.control().hasFocus());
    changeElsewhere("ctrlW", true);
    EXPECT_TRUE(row.control().hasFocus());
    QTest::keyClick(&row.control(), Qt::Key_Space);
    EXPECT_FALSE(Preferences::isEnabled("ctrlW"));
}

TEST_F(ShortcutRowTest, keepsTheSwitchThatIsSpeaking) {
    ShortcutRow row(recommended());
    const QPointer<Switch> speaking(&row.control());
    bool isAliveAfterTurn = false;
    QObject::connect(speaking, &QCheckBox::clicked, &row, [&] {
        settle(); // Even if a loop runs inside the signal.
        isAliveAfterTurn = !speaking.isNull();
    });
    row.control().click();
    EXPECT_TRUE(isAliveAfterTurn);
    EXPECT_FALSE(row.control().isChecked());
}

TEST_F(ShortcutRowTest, isSwitchedByAClickOnItsLabel) {
    ShortcutRow row(recommended());
    show(row);
    QTest::mouseClick(&showing<Text>(row, "Erase the word before the cursor"), Qt::LeftButton);
    EXPECT_FALSE(Preferences::isEnabled("ctrlW"));
    QTest::mouseClick(&only<KeyCap>(row), Qt::LeftButton);
    EXPECT_TRUE(Preferences::isEnabled("ctrlW"));
    QTest::mouseClick(&row.control(), Qt::LeftButton);
    EXPECT_FALSE(Preferences::isEnabled("ctrlW"));
    QTest::mouseClick(&only<KeyCap>(row), Qt::RightButton);
    EXPECT_FALSE(Preferences::isEnabled("ctrlW"));
}

TEST_F(ShortcutRowTest, leavesTheRoomsThatItIsDrawnWith) {
    ShortcutRow row(recommended());
    row.resize(400, row.sizeHint().height());
    show(row);
    const QRect cap = placeOf(only<KeyCap>(row), row);
    const QRect title = placeOf(showing<Text>(row, "Delete word"), row);
    const QRect badge = placeOf(only<Badge>(row), row);
    const QRect subtitle = placeOf(showing<Text>(row, "Erase the word before the cursor"), row);
    const QRect control = placeOf(row.control(), row);
    EXPECT_EQ(cap.left(), 0);
    EXPECT_EQ(title.left() - (cap.right() + 1), 12);
    EXPECT_EQ(subtitle.left(), title.left());
    EXPECT_EQ(badge.left() - (title.right() + 1), 6);
    EXPECT_EQ(subtitle.top() - (title.bottom() + 1), 1);
    EXPECT_EQ(control.right() + 1, row.width());
    EXPECT_NEAR(cap.center().y(), row.rect().center().y(), 1);
    EXPECT_NEAR(badge.center().y(), title.center().y(), 1);
    EXPECT_EQ(showing<Text>(row, "Delete word").font().pixelSize(), 13);
    EXPECT_EQ(showing<Text>(row, "Erase the word before the cursor").font().pixelSize(), 10);
    EXPECT_EQ(showing<Text>(row, "Erase the word before the cursor").tone(), Tone::Secondary);
}

TEST_F(ShortcutRowTest, beginsItsKeyCapWhereAllOthersDo) {
    QWidget list;
    auto* const column = new QVBoxLayout(&list);
    for (const ShortcutDef& shortcut : ShortcutLibrary::all) {
        column->addWidget(new ShortcutRow(shortcut));
    }
    show(list);
    const auto caps = list.findChildren<KeyCap*>();
    ASSERT_EQ(caps.size(), 4);
    for (const KeyCap* const cap : caps) {
        EXPECT_EQ(placeOf(*cap, list).left(), placeOf(*caps.at(0), list).left());
        EXPECT_EQ(cap->width(), 42 + 2 * 8);
    }
}

} // namespace

} // namespace pallistrom
