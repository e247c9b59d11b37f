// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/windows/UpdateConversation.h"

#include "AccessibleTree.h"
#include "platform/linux/update/windows/ThinProgressBar.h"
#include "workspace/WindowLoop.h"

#include <QClipboard>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace pallistrom {

namespace {

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::Ge;
using testing::HasSubstr;
using testing::Le;

class UpdateConversationTest : public testing::Test {
protected:
    [[nodiscard]] static UpdateOffer offer(InstallKind kind = InstallKind::ReplaceItself) {
        return {.newVersion = "2.0",
                .currentVersion = "1.0",
                .notes = "All <b>new</b>.",
                .link = {},
                .kind = kind,
                .isCritical = false};
    }

    void showOffer(const UpdateOffer& shown) {
        conversation->showOffer(shown, [this](OfferAnswer given) { answers.push_back(given); });
    }

    // The window that can be seen; null if there is none.
    [[nodiscard]] static QWidget* window() {
        for (QWidget* const widget : QApplication::topLevelWidgets()) {
            if (widget->isVisible()) {
                return widget;
            }
        }
        return nullptr;
    }

    [[nodiscard]] static QPushButton& button(const std::string& title) {
        for (auto* const candidate : window()->findChildren<QPushButton*>()) {
            if (candidate->text().toStdString() == title) {
                return *candidate;
            }
        }
        ADD_FAILURE() << "no button " << title;
        return *window()->findChild<QPushButton*>();
    }

    [[nodiscard]] static std::string headline() {
        return window()->findChild<QLabel*>(QStringLiteral("headline"))->text().toStdString();
    }

    void press(int key) {
        QWidget* const focus = window()->focusWidget();
        QTest::keyClick(focus != nullptr ? focus : window(), static_cast<Qt::Key>(key));
        loop.drain();
    }

    WindowLoop loop;
    int timesInFront = 0;
    bool hasCentre = false;
    int timesCentreOpened = 0;
    int cancellations = 0;
    std::vector<OfferAnswer> answers;
    std::unique_ptr<UpdateUserDriver> conversation = std::make_unique<UpdateConversation>(
        UpdateConversation::Desktop{.comeToFront = [this] { ++timesInFront; },
                                    .hasSoftwareCentre = [this] { return hasCentre; },
                                    .openSoftwareCentre =
                                        [this] {
                                            ++timesCentreOpened;
                                        }});
};

TEST_F(UpdateConversationTest, isOneWindowThatChanges) {
    conversation->showChecking([] {});
    QWidget* const first = window();
    EXPECT_EQ(headline(), "Checking for updates…");
    showOffer(offer());
    EXPECT_EQ(window(), first);
    EXPECT_EQ(headline(), "A new version of Pallistrom is here");
    conversation->showDownload([] {});
    EXPECT_EQ(headline(), "Downloading Pallistrom 2.0…");
    conversation->showInstalling();
    EXPECT_EQ(headline(), "Installing Pallistrom 2.0…");
    conversation->showInstalled("2.0", [](bool /*now*/) {});
    EXPECT_EQ(headline(), "Pallistrom 2.0 is installed");
    EXPECT_EQ(window(), first);
    conversation->dismiss();
    EXPECT_EQ(window(), nullptr);
}

TEST_F(UpdateConversationTest, answersFromTheLoopAndOnce) {
    conversation->showChecking([this] { ++cancellations; });
    button("Cancel").click();
    EXPECT_EQ(cancellations, 0) << "not from within the click";
    EXPECT_EQ(window(), nullptr);
    loop.drain();
    EXPECT_EQ(cancellations, 1);
}

TEST_F(UpdateConversationTest, answersNothingOnceItIsDismissed) {
    conversation->showChecking([this] { ++cancellations; });
    button("Cancel").click();
    conversation->dismiss();
    loop.drain();
    EXPECT_EQ(cancellations, 0);
}

TEST_F(UpdateConversationTest, answersWhatWasPressed) {
    for (const auto& [title, answer] : {std::pair{"Skip This Version", OfferAnswer::Skip},
                                        std::pair{"Remind Me Later", OfferAnswer::Later},
                                        std::pair{"Install Update", OfferAnswer::Install}}) {
        answers.clear();
        showOffer(offer());
        button(title).click();
        loop.drain();
        EXPECT_THAT(answers, ElementsAre(answer)) << title;
    }
}

TEST_F(UpdateConversationTest, returnInstallsAndEscapeAsksAgainLater) {
    conversation->showChecking([] {});
    showOffer(offer());
    press(Qt::Key_Return);
    EXPECT_THAT(answers, ElementsAre(OfferAnswer::Install));
    answers.clear();
    showOffer(offer());
    press(Qt::Key_Escape);
    EXPECT_THAT(answers, ElementsAre(OfferAnswer::Later));
    EXPECT_EQ(window(), nullptr);
}

TEST_F(UpdateConversationTest, returnDoesNotCancelADownload) {
    conversation->showDownload([this] { ++cancellations; });
    press(Qt::Key_Return);
    EXPECT_EQ(cancellations, 0);
    press(Qt::Key_Escape);
    EXPECT_EQ(cancellations, 1);
}

TEST_F(UpdateConversationTest, closingTheWindowAnswersLater) {
    showOffer(offer());
    window()->close();
    loop.drain();
    EXPECT_THAT(answers, ElementsAre(OfferAnswer::Later));
    EXPECT_EQ(window(), nullptr);
}

TEST_F(UpdateConversationTest, anInstallationGoesOnBehindAClosedWindow) {
    conversation->showInstalling();
    window()->close();
    loop.drain();
    EXPECT_EQ(window(), nullptr);
    conversation->showInstalled("2.0", [](bool /*now*/) {});
    EXPECT_EQ(headline(), "Pallistrom 2.0 is installed");
}

TEST_F(UpdateConversationTest, comesToTheFrontIfItWasAskedForOnly) {
    showOffer(offer());
    EXPECT_EQ(timesInFront, 0);
    EXPECT_TRUE(window()->testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_TRUE(conversation->bringToFront());
    EXPECT_EQ(timesInFront, 1);
    conversation->dismiss();
    EXPECT_FALSE(conversation->bringToFront());
    conversation->showChecking([] {});
    EXPECT_EQ(timesInFront, 2);
    EXPECT_FALSE(window()->testAttribute(Qt::WA_ShowWithoutActivating));
}

TEST_F(UpdateConversationTest, takesNothingThatIsTypedForAnotherProgramForAnAnswer) {
    showOffer(offer());
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_I, Qt::Key_Y}) {
        press(key);
    }
    EXPECT_THAT(answers, ElementsAre());
    ASSERT_TRUE(conversation->bringToFront());
    press(Qt::Key_Return);
    EXPECT_THAT(answers, ElementsAre(OfferAnswer::Install));
}

TEST_F(UpdateConversationTest, waitsGreyForWhatComesAfterInstall) {
    showOffer(offer());
    button("Install Update").click();
    EXPECT_FALSE(button("Install Update").isEnabled());
    loop.drain();
    EXPECT_NE(window(), nullptr);
    window()->close();
    loop.drain();
    EXPECT_THAT(answers, ElementsAre(OfferAnswer::Install)) << "one answer is enough";
}

TEST_F(UpdateConversationTest, goesAwayWhereAPageInTheBrowserComesNext) {
    showOffer(offer(InstallKind::Elsewhere));
    button("Get Update").click();
    loop.drain();
    EXPECT_THAT(answers, ElementsAre(OfferAnswer::Install));
    EXPECT_EQ(window(), nullptr);
}

TEST_F(UpdateConversationTest, showsHowFarTheDownloadIs) {
    conversation->showDownload([] {});
    auto* const bar = window()->findChild<ThinProgressBar*>();
    EXPECT_EQ(bar->maximum(), 0) << "nobody knows how much there is";
    conversation->showProgress(2'000'000, 0);
    EXPECT_EQ(bar->maximum(), 0);
    conversation->showProgress(2'000'000, 4'000'000);
    EXPECT_EQ(bar->value() * 2, bar->maximum());
    EXPECT_THAT(accessibleTree(*window()), testing::Contains("text '2.0 MB of 4.0 MB'"));
    conversation->showProgress(5'000'000, 4'000'000);
    EXPECT_EQ(bar->value(), bar->maximum());
}

TEST_F(UpdateConversationTest, ignoresProgressThatComesTooLate) {
    conversation->showDownload([] {});
    conversation->showInstalling();
    conversation->showProgress(2'000'000, 4'000'000);
    EXPECT_EQ(window()->findChild<ThinProgressBar*>()->maximum(), 0);
}

TEST_F(UpdateConversationTest, wakesNobodyUpOnceItIsHidden) {
    conversation->showChecking([] {});
    auto* const bar = window()->findChild<ThinProgressBar*>();
    conversation->dismiss();
    EXPECT_FALSE(bar->isMoving());
}

TEST_F(UpdateConversationTest, copiesTheCommandAndStays) {
    conversation->showPackageWay(offer(InstallKind::Package), "sudo get it");
    button("Copy Command").click();
    loop.drain();
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "sudo get it");
    EXPECT_NE(window(), nullptr);
    EXPECT_TRUE(button("Copied").isEnabled());
    button("Close").click();
    EXPECT_EQ(window(), nullptr);
}

TEST_F(UpdateConversationTest, opensTheSoftwareCentre) {
    hasCentre = true;
    conversation->showPackageWay(offer(InstallKind::Package), "sudo get it");
    button("Open Software Centre").click();
    loop.drain();
    EXPECT_EQ(timesCentreOpened, 1);
    EXPECT_EQ(window(), nullptr);
}

TEST_F(UpdateConversationTest, saysWhichStepFailed) {
    conversation->showChecking([] {});
    conversation->showFailure("It is gone.");
    EXPECT_EQ(headline(), "Could not look for updates");
    conversation->showDownload([] {});
    conversation->showFailure("It is gone.");
    EXPECT_EQ(headline(), "Could not download the update");
    conversation->showInstalling();
    conversation->showFailure("It is gone.");
    EXPECT_EQ(headline(), "Could not install the update");
}

TEST_F(UpdateConversationTest, restartsOnlyIfItIsTold) {
    std::optional<bool> restarts;
    const auto answer = [&](bool now) {
        restarts = now;
    };
    conversation->showInstalled("2.0", answer);
    button("Restart Now").click();
    loop.drain();
    EXPECT_EQ(restarts, true);
    conversation->showInstalled("2.0", answer);
    press(Qt::Key_Escape);
    EXPECT_EQ(restarts, false);
}

TEST_F(UpdateConversationTest, takesNotesForPlainText) {
    showOffer(offer());
    EXPECT_EQ(window()->findChild<QPlainTextEdit*>()->toPlainText().toStdString(),
              "All <b>new</b>.");
    for (const auto* const label : window()->findChildren<QLabel*>()) {
        EXPECT_TRUE(label->textFormat() == Qt::PlainText || label->text().isEmpty());
    }
}

TEST_F(UpdateConversationTest, tellsAssistiveTechnologyOfEverything) {
    showOffer(offer());
    EXPECT_THAT(accessibleTree(*window()),
                ElementsAre("dialog 'Software Update'",
                            "text 'A new version of Pallistrom is here'",
                            "text 'Pallistrom 2.0 is ready; you have 1.0.'",
                            "text field 'What is new' focusable",
                            "button 'Skip This Version' focusable",
                            "button 'Remind Me Later' focusable",
                            "button 'Install Update' focusable"));
    conversation->showDownload([] {});
    EXPECT_THAT(accessibleTree(*window()),
                ElementsAre("dialog 'Software Update'",
                            "text 'Downloading Pallistrom 2.0…'",
                            "progress bar 'Downloading Pallistrom 2.0…'",
                            "text 'Connecting…'",
                            "button 'Cancel' focusable"));
}

} // namespace

} // namespace pallistrom
