// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/windows/UpdatePages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pallistrom {

namespace {

using Choice = UpdatePage::Choice;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using UpdatePages::SoftwareCentre;
using UpdatePages::Step;

UpdateOffer offerOf(InstallKind kind) {
    return {.newVersion = "2.0",
            .currentVersion = "1.0",
            .notes = "All new.",
            .link = {},
            .kind = kind,
            .isCritical = false};
}

// The titles from the leading to the trailing edge.
std::vector<std::string> titles(const UpdatePage& page) {
    std::vector<std::string> result;
    if (page.apart) {
        result.push_back(page.apart->title);
    }
    for (const UpdatePage::Button& button : page.buttons) {
        result.push_back(button.title);
    }
    return result;
}

TEST(UpdatePages, aCheckCanBeCancelledAndReturnDoesNot) {
    const UpdatePage page = UpdatePages::checking();
    EXPECT_TRUE(page.showsProgress);
    EXPECT_THAT(titles(page), ElementsAre("Cancel"));
    EXPECT_EQ(page.onReturn, std::nullopt);
    EXPECT_EQ(page.onEscape, Choice::Cancel);
}

TEST(UpdatePages, saysWhichVersionIsTheNewest) {
    const UpdatePage page = UpdatePages::upToDate("1.0");
    EXPECT_THAT(page.text, HasSubstr("Pallistrom 1.0"));
    EXPECT_EQ(page.onReturn, Choice::Close);
}

TEST(UpdatePages, offersToInstall) {
    const UpdatePage page = UpdatePages::offer(offerOf(InstallKind::ReplaceItself));
    EXPECT_THAT(page.text, AllOf(HasSubstr("Pallistrom 2.0"), HasSubstr("you have 1.0")));
    EXPECT_EQ(page.notes, "All new.");
    EXPECT_THAT(titles(page),
                ElementsAre("Skip This Version", "Remind Me Later", "Install Update"));
    EXPECT_EQ(page.onReturn, Choice::Install);
    EXPECT_EQ(page.onEscape, Choice::Later);
}

TEST(UpdatePages, promisesNoInstallationWhereItCannotInstall) {
    for (const InstallKind kind : {InstallKind::Package, InstallKind::Elsewhere}) {
        EXPECT_EQ(UpdatePages::offer(offerOf(kind)).buttons.back().title, "Get Update");
    }
}

TEST(UpdatePages, letsNobodySkipWhatIsCritical) {
    UpdateOffer offer = offerOf(InstallKind::ReplaceItself);
    offer.isCritical = true;
    const UpdatePage page = UpdatePages::offer(offer);
    EXPECT_THAT(titles(page), ElementsAre("Remind Me Later", "Install Update"));
    EXPECT_THAT(page.text, HasSubstr("do not put it off"));
}

TEST(UpdatePages, doesWithoutAVersionThatNobodyTold) {
    UpdateOffer offer = offerOf(InstallKind::ReplaceItself);
    offer.currentVersion.clear();
    EXPECT_THAT(UpdatePages::offer(offer).text, Not(HasSubstr("you have")));
    EXPECT_EQ(UpdatePages::download("").headline, "Downloading Pallistrom…");
}

TEST(UpdatePages, anInstallationCannotBeCancelled) {
    const UpdatePage page = UpdatePages::installing("2.0");
    EXPECT_THAT(titles(page), IsEmpty());
    EXPECT_EQ(page.onEscape, std::nullopt);
}

TEST(UpdatePages, asksBeforeItRestarts) {
    const UpdatePage page = UpdatePages::installed("2.0");
    EXPECT_THAT(titles(page), ElementsAre("Later", "Restart Now"));
    EXPECT_EQ(page.onReturn, Choice::Restart);
    EXPECT_EQ(page.onEscape, Choice::Later);
}

TEST(UpdatePages, showsTheCommandOfThePackageManager) {
    const UpdatePage page = UpdatePages::packageWay(
        offerOf(InstallKind::Package), "sudo get it", SoftwareCentre::Missing);
    EXPECT_EQ(page.command, "sudo get it");
    EXPECT_THAT(page.text, HasSubstr("in a terminal:"));
    EXPECT_THAT(titles(page), ElementsAre("Copy Command", "Close"));
    EXPECT_EQ(page.onReturn, Choice::Close);
}

TEST(UpdatePages, opensTheSoftwareCentreWhereThereIsOne) {
    const UpdatePage page = UpdatePages::packageWay(
        offerOf(InstallKind::Package), "sudo get it", SoftwareCentre::There);
    EXPECT_THAT(titles(page), ElementsAre("Copy Command", "Close", "Open Software Centre"));
    EXPECT_EQ(page.onReturn, Choice::SoftwareCentre);
}

TEST(UpdatePages, doesWithoutACommandThatNobodyKnows) {
    const UpdatePage page =
        UpdatePages::packageWay(offerOf(InstallKind::Package), "", SoftwareCentre::Missing);
    EXPECT_THAT(page.text, Not(HasSubstr("terminal")));
    EXPECT_THAT(titles(page), ElementsAre("Close"));
}

TEST(UpdatePages, saysWhatFailedAndWhy) {
    EXPECT_EQ(UpdatePages::failure(Step::Check, "No.").headline, "Could not look for updates");
    EXPECT_EQ(UpdatePages::failure(Step::Download, "No.").headline,
              "Could not download the update");
    EXPECT_EQ(UpdatePages::failure(Step::Installation, "No.").headline,
              "Could not install the update");
    EXPECT_EQ(UpdatePages::failure(Step::Check, "No.").text, "No.");
}

TEST(UpdatePages, countsBytesAsPeopleDo) {
    EXPECT_EQ(UpdatePages::progressText(0, 0), "0 kB");
    EXPECT_EQ(UpdatePages::progressText(999'999, 0), "999 kB");
    EXPECT_EQ(UpdatePages::progressText(1'000'000, 5'190'000), "1.0 MB of 5.1 MB");
    EXPECT_EQ(UpdatePages::progressText(999'999'999, 2'000'000'000), "999.9 MB of 2.0 GB");
    EXPECT_EQ(UpdatePages::progressText(~std::uint64_t{0}, 1), "18446744073.7 GB of 0 kB");
}

} // namespace

} // namespace pallistrom
