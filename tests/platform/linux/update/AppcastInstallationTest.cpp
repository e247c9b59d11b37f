// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FeedText.h"
#include "UpdaterTest.h"

#include <QTimer>

#include <gmock/gmock.h>

#include <filesystem>
#include <string>

namespace pallistrom {

namespace {

using namespace std::chrono_literals;
using FeedText::item;
using testing::ElementsAre;
using testing::SizeIs;

class Installation : public UpdaterTest {
protected:
    void offer() {
        publish(item("2", archive("archive.tar.gz", bytes)));
        start();
        ASSERT_EQ(checkNow(), Window::Offer);
        log();
    }

    std::string bytes = "the new version" + std::string(300000, '!');
};

TEST_F(Installation, goesFromTheOfferToTheRestart) {
    offer();
    ASSERT_EQ(installNow(), Window::Installing);
    EXPECT_EQ(installation.installed, bytes);
    EXPECT_EQ(windows.received, bytes.size());
    EXPECT_EQ(windows.expected, bytes.size());
    EXPECT_EQ(installation.archive.parent_path(), archiveFolder());
    installation.done("");
    ASSERT_EQ(windows.window, Window::Installed);
    EXPECT_EQ(windows.text, "2");
    EXPECT_THAT(log(), ElementsAre("Pallistrom: version 2 is installed"));
    windows.answerInstalled(true);
    EXPECT_TRUE(installation.hasRestarted);
    EXPECT_EQ(windows.window, Window::None);
    EXPECT_THAT(windows.history,
                ElementsAre(Window::Checking,
                            Window::Offer,
                            Window::Download,
                            Window::Installing,
                            Window::Installed));
}

TEST_F(Installation, leavesNoArchiveBehind) {
    offer();
    ASSERT_EQ(installNow(), Window::Installing);
    EXPECT_TRUE(std::filesystem::exists(installation.archive));
    installation.done("");
    windows.answerInstalled(false);
    EXPECT_FALSE(installation.hasRestarted);
    updater.reset();
    QTimer again;
    again.start(2ms);
    EXPECT_TRUE(loop.runUntil([this] { return !std::filesystem::exists(archiveFolder()); }));
    log();
}

TEST_F(Installation, saysWhatStandsInTheWay) {
    offer();
    ASSERT_EQ(installNow(), Window::Installing);
    installation.done("The folder cannot be written.");
    EXPECT_EQ(windows.window, Window::Failure);
    EXPECT_EQ(windows.text, "The folder cannot be written.");
    EXPECT_TRUE(clock.alarm);
    EXPECT_THAT(log(), ElementsAre("Pallistrom: the update failed: The folder cannot be written."));
}

TEST_F(Installation, canBeCancelledWhileItLoads) {
    offer();
    server.answer("archive.tar.gz", LoopbackServer::silent());
    windows.answer(OfferAnswer::Install);
    ASSERT_EQ(windows.window, Window::Download);
    windows.cancel();
    EXPECT_EQ(windows.window, Window::None);
    EXPECT_TRUE(clock.alarm);
    EXPECT_EQ(installation.installed, "");
    EXPECT_EQ(checkNow(), Window::Offer);
    log();
}

TEST_F(Installation, isLeftToThePackageManager) {
    installation.kind = InstallKind::Package;
    offer();
    windows.answer(OfferAnswer::Install);
    EXPECT_EQ(windows.window, Window::PackageWay);
    EXPECT_EQ(windows.text, "upgrade the-package");
    EXPECT_THAT(server.requests(), SizeIs(1)) << "of the feed alone";
    EXPECT_TRUE(clock.alarm);
}

TEST_F(Installation, isLeftToTheUser) {
    installation.kind = InstallKind::Elsewhere;
    publish(item("2", "<link>https://example.invalid/2</link>" + archive("a", "x")));
    start();
    ASSERT_EQ(checkNow(), Window::Offer);
    windows.answer(OfferAnswer::Install);
    EXPECT_EQ(windows.window, Window::None);
    EXPECT_EQ(installation.page, "https://example.invalid/2");
    log();
}

TEST_F(Installation, isNoneOfNews) {
    publish(item("2",
                 "<link>https://example.invalid/2</link><sparkle:informationalUpdate/>" +
                     archive("a", "x")));
    start();
    ASSERT_EQ(checkNow(), Window::Offer);
    EXPECT_EQ(windows.offer.kind, InstallKind::Elsewhere);
    windows.answer(OfferAnswer::Install);
    EXPECT_EQ(installation.page, "https://example.invalid/2");
    log();
}

} // namespace

} // namespace pallistrom
