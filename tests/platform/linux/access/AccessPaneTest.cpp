// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/access/AccessPane.h"

#include "workspace/WindowLoop.h"

#include <QLabel>
#include <QPushButton>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace pallistrom {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class AccessPaneTest : public testing::Test {
protected:
    // What can be read in the pane, from the top.
    [[nodiscard]] std::vector<std::string> texts() const {
        std::vector<std::string> result;
        for (const QLabel* const label : pane.findChildren<QLabel*>()) {
            result.push_back(label->text().toStdString());
        }
        return result;
    }

    WindowLoop loop;
    std::optional<Obstacle> obstacle = Obstacle::NoXTest;
    int looks = 0;
    AccessPane pane{[this] {
        ++looks;
        return obstacle;
    }};
};

TEST_F(AccessPaneTest, saysWhatIsInTheWay) {
    pane.show();
    EXPECT_THAT(texts(), ElementsAre("Pallistrom cannot filter keys here", HasSubstr("XTEST")));
}

TEST_F(AccessPaneTest, followsTheTrustWhileItIsOpen) {
    pane.show();
    obstacle.reset();
    EXPECT_TRUE(
        loop.runUntil([&] { return texts().front() == "Pallistrom can filter keys here"; }));
    obstacle = Obstacle::WaylandSession;
    EXPECT_TRUE(loop.runUntil([&] { return texts().back().find("Wayland") != std::string::npos; }));
}

TEST_F(AccessPaneTest, looksAtOnceWhenItIsOpenedAndNotWhileItIsClosed) {
    EXPECT_FALSE(pane.isLooking());
    pane.show();
    EXPECT_TRUE(pane.isLooking());
    pane.close();
    EXPECT_FALSE(pane.isLooking());
    obstacle.reset();
    const int before = looks;
    pane.show();
    EXPECT_GT(looks, before);
    EXPECT_THAT(texts().front(), HasSubstr("can filter"));
    EXPECT_TRUE(pane.isLooking());
}

TEST_F(AccessPaneTest, showsAllOfEachText) {
    for (const auto each : {std::optional<Obstacle>(),
                            std::optional(Obstacle::WaylandSession),
                            std::optional(Obstacle::NoDisplay),
                            std::optional(Obstacle::NoXTest)}) {
        obstacle = each;
        pane.hide();
        pane.show();
        loop.drain();
        for (const QLabel* const label : pane.findChildren<QLabel*>()) {
            EXPECT_FALSE(label->text().isEmpty());
            EXPECT_GE(label->height(), label->heightForWidth(label->width()));
            EXPECT_TRUE(pane.rect().contains(label->geometry()));
        }
    }
}

TEST_F(AccessPaneTest, isClosedByItsButton) {
    pane.show();
    const auto buttons = pane.findChildren<QPushButton*>();
    ASSERT_EQ(buttons.size(), 1);
    buttons.front()->click();
    EXPECT_FALSE(pane.isVisible());
}

} // namespace

} // namespace pallistrom
