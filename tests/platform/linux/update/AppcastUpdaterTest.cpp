// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FeedText.h"
#include "UpdaterTest.h"

#include <gmock/gmock.h>

#include <fstream>

namespace pallistrom {

namespace {

using namespace std::chrono_literals;
using FeedText::item;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class AskedCheck : public UpdaterTest {};

TEST_F(AskedCheck, saysThatThereIsNothingNewer) {
    publish(item("1", archive("a", "x")) + item("0.9", archive("a", "x")));
    start();
    EXPECT_EQ(checkNow(), Window::UpToDate);
    EXPECT_EQ(windows.text, "1.0");
    EXPECT_THAT(windows.history, ElementsAre(Window::Checking, Window::UpToDate));
}

TEST_F(AskedCheck, tellsTheServerNothing) {
    publish("");
    start();
    EXPECT_EQ(checkNow(), Window::UpToDate);
    const auto& requests = server.requests();
    ASSERT_THAT(requests, SizeIs(1));
    EXPECT_THAT(requests[0], HasSubstr("GET /appcast.xml HTTP/1.1\r\n"));
    EXPECT_THAT(requests[0], HasSubstr("User-Agent: Pallistrom/1.0\r\n"));
    EXPECT_THAT(requests[0], HasSubstr("Accept-Encoding: identity\r\n"));
    EXPECT_THAT(requests[0], testing::Not(HasSubstr("Cookie")));
}

TEST_F(AskedCheck, offersANewerVersion) {
    publish(item("2",
                 "<sparkle:shortVersionString>2.0</sparkle:shortVersionString>"
                 "<link>https://example.invalid/2</link>"
                 "<description><![CDATA[<ul><li>Better</li></ul>]]></description>" +
                     archive("a", "x")));
    start();
    ASSERT_EQ(checkNow(), Window::Offer);
    EXPECT_EQ(windows.offer.newVersion, "2.0");
    EXPECT_EQ(windows.offer.currentVersion, "1.0");
    EXPECT_EQ(windows.offer.notes, "• Better");
    EXPECT_EQ(windows.offer.link, "https://example.invalid/2");
    EXPECT_EQ(windows.offer.kind, InstallKind::ReplaceItself);
    EXPECT_FALSE(windows.offer.isCritical);
    EXPECT_THAT(log(), ElementsAre("Pallistrom: version 2.0 is there"));
}

TEST_F(AskedCheck, showsNoLinkThatIsNotSecure) {
    publish(item("2", "<link>http://example.invalid/2</link>" + archive("a", "x")));
    start();
    ASSERT_EQ(checkNow(), Window::Offer);
    EXPECT_EQ(windows.offer.link, "");
    log();
}

TEST_F(AskedCheck, offersWhatWasSkippedOrIsNotYetEverybodys) {
    publish(item("2",
                 "<pubDate>Sat, 21 Nov 2026 13:00:00 +0000</pubDate>"
                 "<sparkle:phasedRolloutInterval>99999999</sparkle:phasedRolloutInterval>" +
                     archive("a", "x")));
    start();
    ASSERT_EQ(checkNow(), Window::Offer);
    windows.answer(OfferAnswer::Skip);
    EXPECT_EQ(windows.window, Window::None);
    EXPECT_EQ(checkNow(), Window::Offer);
    log();
}

TEST_F(AskedCheck, comesToTheFrontWhenAskedAgain) {
    server.answer("appcast.xml", LoopbackServer::silent());
    start();
    updater->checkForUpdates();
    updater->checkForUpdates();
    updater->checkForUpdates();
    EXPECT_EQ(windows.toFront, 2);
    EXPECT_THAT(windows.history, ElementsAre(Window::Checking));
    EXPECT_TRUE(loop.runUntil([this] { return !server.requests().empty(); }));
    publish(item("2", archive("a", "x")));
    windows.cancel();
    ASSERT_EQ(checkNow(), Window::Offer);
    updater->checkForUpdates();
    EXPECT_EQ(windows.window, Window::Offer);
    EXPECT_EQ(windows.toFront, 3);
    log();
}

TEST_F(AskedCheck, canBeCancelled) {
    server.answer("appcast.xml", LoopbackServer::silent());
    start();
    updater->checkForUpdates();
    windows.cancel();
    EXPECT_EQ(windows.window, Window::None);
    EXPECT_TRUE(clock.alarm);
}

TEST_F(AskedCheck, takesThePlaceOfAWindowThatHasNothingToAnswer) {
    publish("");
    start();
    EXPECT_EQ(checkNow(), Window::UpToDate);
    EXPECT_EQ(checkNow(), Window::UpToDate);
    EXPECT_EQ(windows.toFront, 0);
}

TEST_F(AskedCheck, takesThePlaceOfOneThatRunsByItself) {
    server.answer("appcast.xml", LoopbackServer::silent());
    start();
    clock.ring();
    EXPECT_TRUE(loop.runUntil([this] { return !server.requests().empty(); }));
    publish("");
    EXPECT_EQ(checkNow(), Window::UpToDate);
}

TEST_F(AskedCheck, showsWhatWentWrong) {
    start();
    EXPECT_EQ(checkNow(), Window::Failure);
    EXPECT_EQ(windows.text, "The server answers \"404\".");
    EXPECT_THAT(log(),
                ElementsAre("Pallistrom: the update check failed: The server answers \"404\"."));
}

TEST_F(AskedCheck, saysThatThereIsNoFeed) {
    settings.problem = "This build has no update feed.";
    start();
    EXPECT_FALSE(updater->automaticallyChecksForUpdates());
    updater->setAutomaticallyChecksForUpdates(true);
    EXPECT_FALSE(updater->automaticallyChecksForUpdates());
    EXPECT_FALSE(clock.alarm);
    EXPECT_THAT(log(), IsEmpty());
    updater->checkForUpdates();
    EXPECT_EQ(windows.window, Window::Failure);
    EXPECT_EQ(windows.text, "This build has no update feed.");
    EXPECT_THAT(log(), ElementsAre(HasSubstr("This build has no update feed")));
    EXPECT_FALSE(std::filesystem::exists(stateFolder()));
}

class ScheduledCheck : public UpdaterTest {};

TEST_F(ScheduledCheck, showsNothingIfThereIsNothing) {
    publish(item("1", archive("a", "x")));
    start();
    EXPECT_EQ(clock.alarm, 1min);
    EXPECT_EQ(checkByItself(), Window::None);
    EXPECT_EQ(clock.alarm, 24h);
    EXPECT_EQ(windows.drivers, 0);
}

TEST_F(ScheduledCheck, offersANewerVersion) {
    publish(item("2", archive("a", "x")));
    start();
    EXPECT_EQ(checkByItself(), Window::Offer);
    EXPECT_THAT(windows.history, ElementsAre(Window::Offer));
    EXPECT_FALSE(clock.alarm) << "while it is open";
    windows.answer(OfferAnswer::Later);
    EXPECT_EQ(windows.window, Window::None);
    EXPECT_EQ(clock.alarm, 24h);
    EXPECT_EQ(checkByItself(), Window::Offer) << "again";
    log();
}

TEST_F(ScheduledCheck, offersNothingThatWasSkipped) {
    publish(item("2", archive("a", "x")));
    start();
    ASSERT_EQ(checkByItself(), Window::Offer);
    windows.answer(OfferAnswer::Skip);
    EXPECT_EQ(checkByItself(), Window::None);
    start();
    EXPECT_EQ(checkByItself(), Window::None);
    publish(item("2.1", archive("a", "x")));
    EXPECT_EQ(checkByItself(), Window::Offer);
    log();
}

TEST_F(ScheduledCheck, offersAgainWhatIsCritical) {
    publish(item("2", "<sparkle:criticalUpdate/>" + archive("a", "x")));
    start();
    ASSERT_EQ(checkByItself(), Window::Offer);
    EXPECT_TRUE(windows.offer.isCritical);
    windows.answer(OfferAnswer::Skip);
    EXPECT_EQ(checkByItself(), Window::Offer);
    log();
}

TEST_F(ScheduledCheck, offersNothingOfOtherChannels) {
    publish(item("2", "<sparkle:channel>beta</sparkle:channel>" + archive("a", "x")));
    start();
    EXPECT_EQ(checkByItself(), Window::None);
}

TEST_F(ScheduledCheck, offersNothingForNewerSystems) {
    publish(item("2",
                 "<sparkle:minimumSystemVersion>6.2</sparkle:minimumSystemVersion>" +
                     archive("a", "x")));
    start();
    EXPECT_EQ(checkByItself(), Window::None);
    systemVersion = "6.2.1-generic";
    start();
    EXPECT_EQ(checkByItself(), Window::Offer);
    log();
}

TEST_F(ScheduledCheck, waitsForItsTurn) {
    std::filesystem::create_directories(stateFolder());
    std::ofstream(stateFolder() / "updates.ini") << "roll-out-group=3\n";
    publish(item("2",
                 "<pubDate>Sat, 21 Nov 2026 13:00:00 +0000</pubDate>"
                 "<sparkle:phasedRolloutInterval>86400</sparkle:phasedRolloutInterval>" +
                     archive("a", "x")));
    start();
    EXPECT_EQ(checkByItself(), Window::None) << "after a minute";
    EXPECT_EQ(checkByItself(), Window::None) << "after a day";
    EXPECT_EQ(checkByItself(), Window::None) << "after two";
    EXPECT_EQ(checkByItself(), Window::Offer) << "after three";
    log();
}

TEST_F(ScheduledCheck, staysInItsGroup) {
    publish("");
    start();
    EXPECT_EQ(checkByItself(), Window::None);
    const auto group = UpdateStateFile(stateFolder()).load().rollOutGroup;
    ASSERT_TRUE(group);
    start();
    EXPECT_EQ(checkByItself(), Window::None);
    EXPECT_EQ(UpdateStateFile(stateFolder()).load().rollOutGroup, group);
}

TEST_F(ScheduledCheck, keepsItsTimeAcrossRestarts) {
    publish("");
    start();
    EXPECT_EQ(checkByItself(), Window::None);
    clock.now += 3600;
    start();
    EXPECT_EQ(clock.alarm, 23h);
    clock.now += 22 * 3600;
    start();
    EXPECT_EQ(clock.alarm, 1h);
    clock.now += 48 * 3600;
    start();
    EXPECT_EQ(clock.alarm, 1min) << "overdue";
}

TEST_F(ScheduledCheck, comesThoughTheClockWasSetBack) {
    publish("");
    start();
    EXPECT_EQ(checkByItself(), Window::None);
    clock.now -= 365L * 86400;
    start();
    EXPECT_EQ(clock.alarm, 24h);
    EXPECT_EQ(checkByItself(), Window::None);
    EXPECT_THAT(server.requests(), SizeIs(2));
}

TEST_F(ScheduledCheck, isPutOffByOneThatWasAskedFor) {
    publish("");
    start();
    EXPECT_EQ(checkNow(), Window::UpToDate);
    EXPECT_EQ(clock.alarm, 24h);
}

TEST_F(ScheduledCheck, failsSilentlyAndTriesAgainInAnHour) {
    start();
    EXPECT_EQ(checkByItself(), Window::None);
    EXPECT_EQ(windows.drivers, 0);
    EXPECT_EQ(clock.alarm, 1h);
    EXPECT_THAT(log(), ElementsAre(HasSubstr("the update check failed")));
    start();
    EXPECT_EQ(clock.alarm, 1h) << "after a restart, too";
}

TEST_F(ScheduledCheck, canBeSwitchedOff) {
    start();
    updater->setAutomaticallyChecksForUpdates(false);
    EXPECT_FALSE(updater->automaticallyChecksForUpdates());
    EXPECT_FALSE(clock.alarm);
    start();
    EXPECT_FALSE(updater->automaticallyChecksForUpdates());
    EXPECT_FALSE(clock.alarm);
    publish("");
    EXPECT_EQ(checkNow(), Window::UpToDate);
    EXPECT_FALSE(clock.alarm);
    updater->setAutomaticallyChecksForUpdates(true);
    EXPECT_TRUE(updater->automaticallyChecksForUpdates());
    EXPECT_EQ(clock.alarm, 24h);
}

TEST_F(ScheduledCheck, isOffWhereThePackagerSaysSo) {
    settings.checksByItself = false;
    start();
    EXPECT_FALSE(updater->automaticallyChecksForUpdates());
    EXPECT_FALSE(clock.alarm);
    updater->setAutomaticallyChecksForUpdates(true);
    start();
    EXPECT_EQ(clock.alarm, 1min);
}

TEST_F(ScheduledCheck, startsAnewIfWhatItRemembersIsDamaged) {
    std::filesystem::create_directories(stateFolder());
    std::ofstream(stateFolder() / "updates.ini") << "nonsense";
    start();
    EXPECT_EQ(clock.alarm, 1min);
    EXPECT_THAT(log(), ElementsAre(HasSubstr("damaged")));
}

} // namespace

} // namespace pallistrom
