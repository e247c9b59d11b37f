// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ViewTest.h"
#include "views/AccessibilityStatusPill.h"
#include "views/LoginToggle.h"
#include "views/SettingsView.h"
#include "views/ShortcutRow.h"
#include "views/controls/GroupBox.h"
#include "views/controls/PushButton.h"
#include "views/controls/Switch.h"
#include "views/controls/SymbolView.h"
#include "views/controls/Text.h"

#include <QLayout>

#include <memory>

namespace pallistrom {

namespace {

class SettingsLayout : public ViewTest {
protected:
    SettingsLayout()
        : view(std::make_unique<SettingsView>(
              state, [] {}, [] {})) {}

    void SetUp() override { show(*view); }

    [[nodiscard]] QRect place(const QWidget& widget) const { return placeOf(widget, *view); }

    static int below(const QRect& upper, const QRect& lower) {
        return lower.top() - (upper.bottom() + 1);
    }

    std::unique_ptr<SettingsView> view;
};

TEST_F(SettingsLayout, isAlwaysOfTheSameWidth) {
    EXPECT_EQ(view->width(), 480);
    view->resize(900, 900);
    EXPECT_EQ(view->width(), 480);
    platform.localizedStrings["Terminal-style editing, everywhere"] =
        std::string(2000, 'x') + " " + std::string(2000, 'y');
    SettingsView other(
        state, [] {}, [] {});
    show(other);
    EXPECT_EQ(other.width(), 480);
}

TEST_F(SettingsLayout, isAsHighAsItsContent) {
    const QRect quit = place(showing<PushButton>(*view, "Quit Pallistrom"));
    EXPECT_EQ(view->height() - (quit.bottom() + 1), 24);

    platform.localizedStrings["Terminal-style editing, everywhere"] = std::string(400, 'x') + " y";
    SettingsView taller(
        state, [] {}, [] {});
    show(taller);
    EXPECT_GT(taller.height(), view->height());
}

TEST_F(SettingsLayout, followsItsContentWhileItIsOpen) {
    const int height = view->height();
    Text& title = showing<Text>(*view, "General");
    title.setText(QStringLiteral("Two\nlines"));
    settle();
    EXPECT_EQ(view->height(),
              height + title.sizeHint().height() -
                  Text(QStringLiteral("One"), TextStyle::Headline).sizeHint().height());
    title.setText(QStringLiteral("One"));
    settle();
    EXPECT_EQ(view->height(), height);
}

TEST_F(SettingsLayout, fitsWithAndWithoutTheButtonForThePermission) {
    for (const bool trusted : {true, false, true}) {
        setTrusted(trusted);
        EXPECT_EQ(view->height(), view->layout()->totalHeightForWidth(480));
        const QRect quit = place(showing<PushButton>(*view, "Quit Pallistrom"));
        EXPECT_EQ(view->height() - (quit.bottom() + 1), 24);
    }
}

TEST_F(SettingsLayout, leavesTheRoomsOfItsColumn) {
    const auto boxes = view->findChildren<GroupBox*>();
    ASSERT_EQ(boxes.size(), 3);
    const QRect symbol = place(only<SymbolView>(*view));
    const QRect title = place(showing<Text>(*view, "Pallistrom"));
    const QRect tagline = place(showing<Text>(*view, "Terminal-style editing, everywhere"));
    const QRect replay = place(showing<PushButton>(*view, "Replay Onboarding"));
    const QRect quit = place(showing<PushButton>(*view, "Quit Pallistrom"));
    const QRect header = symbol | title | tagline;
    EXPECT_EQ(header.topLeft(), QPoint(24, 24));
    EXPECT_EQ(below(header, place(*boxes.at(0))), 18);
    EXPECT_EQ(below(place(*boxes.at(0)), place(*boxes.at(1))), 18);
    EXPECT_EQ(below(place(*boxes.at(1)), place(*boxes.at(2))), 18);
    EXPECT_EQ(below(place(*boxes.at(2)), replay), 18);
    EXPECT_EQ(place(*boxes.at(1)).width(), 480 - 2 * 24);
    EXPECT_EQ(replay.left(), 24);
    EXPECT_EQ(quit.right() + 1, 480 - 24);
    const QRect version = place(showing<Text>(*view, "v1.2"));
    EXPECT_NEAR(version.left() - replay.right(), quit.left() - version.right(), 1);
    EXPECT_NEAR(version.center().y(), quit.center().y(), 1);
}

TEST_F(SettingsLayout, leavesTheRoomsOfItsHeader) {
    const auto& symbol = only<SymbolView>(*view);
    const auto& title = showing<Text>(*view, "Pallistrom");
    const auto& tagline = showing<Text>(*view, "Terminal-style editing, everywhere");
    EXPECT_EQ(symbol.height(), 30);
    EXPECT_EQ(place(title).left() - (place(symbol).right() + 1), 12);
    EXPECT_EQ(below(place(title), place(tagline)), 1);
    EXPECT_EQ(place(title).left(), place(tagline).left());
    EXPECT_NEAR((place(title) | place(tagline)).center().y(), place(symbol).center().y(), 1);
    EXPECT_EQ(title.font().pixelSize(), 17);
    EXPECT_TRUE(title.font().bold());
    EXPECT_EQ(tagline.font().pixelSize(), 10);
    EXPECT_EQ(tagline.tone(), Tone::Secondary);
    EXPECT_EQ(showing<Text>(*view, "v1.2").font().pixelSize(), 10);
    EXPECT_EQ(showing<Text>(*view, "v1.2").tone(), Tone::Secondary);
}

TEST_F(SettingsLayout, padsThePermission) {
    setTrusted(false);
    const QWidget& pill = only<AccessibilityStatusPill>(*view);
    const QWidget& button = showing<PushButton>(*view, "Open Settings…");
    const QWidget& content = *pill.parentWidget();
    const QRect inside = content.rect().marginsRemoved(QMargins(6, 6, 6, 6));
    EXPECT_EQ(pill.x(), inside.left());
    EXPECT_EQ(button.geometry().right(), inside.right());
    EXPECT_EQ(std::max(pill.height(), button.height()), inside.height());
    EXPECT_NEAR(pill.geometry().center().y(), button.geometry().center().y(), 1);
    EXPECT_EQ(pill.width(), pill.sizeHint().width()) << "it does not stretch";
}

TEST_F(SettingsLayout, padsAndSpacesTheShortcuts) {
    const auto rows = view->findChildren<ShortcutRow*>();
    const QWidget& content = *rows.at(0)->parentWidget();
    EXPECT_EQ(rows.at(0)->pos(), QPoint(8, 8));
    EXPECT_EQ(rows.at(0)->width(), content.width() - 2 * 8);
    for (qsizetype index = 1; index < rows.size(); ++index) {
        EXPECT_EQ(below(rows.at(index - 1)->geometry(), rows.at(index)->geometry()), 12);
    }
    EXPECT_EQ(content.height() - (rows.at(3)->geometry().bottom() + 1), 8);
}

TEST_F(SettingsLayout, padsTheLoginSwitch) {
    const auto& toggle = only<LoginToggle>(*view);
    EXPECT_EQ(toggle.geometry(),
              toggle.parentWidget()->rect().marginsRemoved(QMargins(8, 8, 8, 8)));
}

TEST_F(SettingsLayout, titlesItsGroupsInTheHeadlineFont) {
    for (const auto* const title : {"Shortcuts", "General"}) {
        const auto& text = showing<Text>(*view, title);
        EXPECT_EQ(text.font().pixelSize(), 13);
        EXPECT_TRUE(text.font().bold());
    }
}

} // namespace

} // namespace pallistrom
