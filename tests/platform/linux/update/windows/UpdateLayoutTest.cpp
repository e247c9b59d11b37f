// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/windows/UpdatePages.h"
#include "platform/linux/update/windows/UpdateWindow.h"
#include "workspace/WindowLoop.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pallistrom {

namespace {

constexpr std::size_t veryLong = 5000;

UpdateOffer offerWith(const std::string& version, const std::string& notes) {
    return {.newVersion = version,
            .currentVersion = version,
            .notes = notes,
            .link = {},
            .kind = InstallKind::ReplaceItself,
            .isCritical = false};
}

class UpdateLayoutTest : public testing::Test {
protected:
    QSize show(const UpdatePage& page) {
        window.showPage(page, UpdateWindow::Arrival::Asked);
        loop.drain();
        return window.size();
    }

    // Everything that can be seen lies within the window, and nothing on anything else.
    void expectOrder() const {
        std::vector<QRect> places;
        for (const auto* const part : window.findChildren<QWidget*>()) {
            const bool shows = qobject_cast<const QLabel*>(part) != nullptr ||
                               qobject_cast<const QPushButton*>(part) != nullptr ||
                               qobject_cast<const QPlainTextEdit*>(part) != nullptr;
            if (shows && part->isVisible()) {
                places.emplace_back(part->mapTo(&window, QPoint()), part->size());
            }
        }
        for (std::size_t i = 0; i < places.size(); ++i) {
            EXPECT_TRUE(window.rect().contains(places[i]));
            for (std::size_t j = 0; j < i; ++j) {
                EXPECT_FALSE(places[i].intersects(places[j]));
            }
        }
    }

    WindowLoop loop;
    UpdateWindow window{[](UpdatePage::Choice) {
    }};
};

TEST_F(UpdateLayoutTest, isAsWideForLongTextsAsForShortOnes) {
    const QSize plain = show(UpdatePages::offer(offerWith("2.0", "New.")));
    expectOrder();
    const QSize longer = show(UpdatePages::offer(
        offerWith(std::string(veryLong, '7'), std::string(veryLong, 'n') + "\nand more")));
    expectOrder();
    EXPECT_EQ(longer.width(), plain.width());
    EXPECT_LT(longer.height(), window.screen()->availableGeometry().height());
}

TEST_F(UpdateLayoutTest, scrollsNotesThatAreTooLongForIt) {
    std::string notes;
    for (int i = 0; i < 200; ++i) {
        notes += "a line\n";
    }
    show(UpdatePages::offer(offerWith("2.0", notes)));
    EXPECT_GT(window.findChild<QPlainTextEdit*>()->verticalScrollBar()->maximum(), 0);
    EXPECT_TRUE(window.findChild<QPlainTextEdit*>()->verticalScrollBar()->isVisible());
    show(UpdatePages::offer(offerWith("2.0", "First.\n\nThird.")));
    EXPECT_EQ(window.findChild<QPlainTextEdit*>()->verticalScrollBar()->maximum(), 0);
}

TEST_F(UpdateLayoutTest, breaksAReasonThatHasNoSpaces) {
    const int width = show(UpdatePages::failure(UpdatePages::Step::Check, "No.")).width();
    const QSize longer =
        show(UpdatePages::failure(UpdatePages::Step::Check, "https://" + std::string(300, 'a')));
    expectOrder();
    EXPECT_EQ(longer.width(), width);
}

TEST_F(UpdateLayoutTest, growsWithTheLetters) {
    const QSize before = show(UpdatePages::offer(offerWith("2.0", "New.")));
    QFont large = QApplication::font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    QApplication::setFont(large);
    loop.drain();
    expectOrder();
    EXPECT_GT(window.width(), before.width() * 5 / 4);
    EXPECT_GT(window.height(), before.height());
}

TEST_F(UpdateLayoutTest, givesEachButtonRoomForItsWords) {
    show(UpdatePages::packageWay(
        offerWith("2.0", ""), "sudo get it", UpdatePages::SoftwareCentre::There));
    expectOrder();
    for (const auto* const button : window.findChildren<QPushButton*>()) {
        EXPECT_GT(button->width(), button->fontMetrics().horizontalAdvance(button->text()));
    }
}

} // namespace

} // namespace pallistrom
