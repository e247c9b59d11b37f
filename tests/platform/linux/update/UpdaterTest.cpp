// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "UpdaterTest.h"

#include "FeedText.h"
#include "RecordedLog.h"

#include <QTimer>

#include <gmock/gmock.h>

#include <filesystem>
#include <iterator>

namespace pallistrom {

namespace {

std::ptrdiff_t threads() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

} // namespace

UpdaterTest::UpdaterTest() : m_threads(threads()) {
    settings.feed = QUrl(QString::fromStdString(server.address("appcast.xml")));
    settings.key = key.publicKey();
    settings.checksByItself = true;
    settings.interval = std::chrono::hours(24);
    settings.currentVersion = "1";
    settings.shownVersion = "1.0";
    // As long as it takes on the slowest machine.
    limits.feedTime = limits.archiveTime = limits.silence = std::chrono::minutes(5);
}

UpdaterTest::~UpdaterTest() {
    updater.reset();
    // Threads end when they have the time to, and nobody tells.
    QTimer again;
    again.start(std::chrono::milliseconds(2));
    (void)loop.runUntil([this] { return threads() <= m_threads; });
}

void UpdaterTest::SetUp() {
    RecordedLog::take();
}

void UpdaterTest::TearDown() {
    EXPECT_THAT(log(), testing::IsEmpty());
}

void UpdaterTest::publish(const std::string& items) {
    server.serve("appcast.xml", key.signedFeed(FeedText::feed(items)));
}

std::string UpdaterTest::archive(const std::string& name, const std::string& bytes) {
    server.serve(name, bytes);
    return FeedText::archive(server.address(name), bytes.size(), key.signature(bytes));
}

void UpdaterTest::start() {
    updater.reset();
    updater = std::make_unique<AppcastUpdater>(UpdaterParts{
        .settings = settings,
        .stateFolder = stateFolder(),
        .archiveFolder = archiveFolder(),
        .systemVersion = systemVersion,
        .machine = "x86_64",
        .channels = {},
        .limits = limits,
        .clock = clock.makeClock(),
        .makeUserDriver = [this] { return windows.makeDriver(); },
        .makeInstaller = [this] { return installation.makeInstaller(); },
    });
}

bool UpdaterTest::comes(Window window) {
    return loop.runUntil([&] { return windows.window == window; });
}

FakeConversation::Window UpdaterTest::checkByItself() {
    clock.ring();
    EXPECT_TRUE(loop.runUntil([this] { return clock.alarm || windows.window == Window::Offer; }));
    return windows.window;
}

FakeConversation::Window UpdaterTest::checkNow() {
    updater->checkForUpdates();
    EXPECT_EQ(windows.window, Window::Checking);
    EXPECT_TRUE(loop.runUntil([this] { return windows.window != Window::Checking; }));
    return windows.window;
}

FakeConversation::Window UpdaterTest::installNow() {
    windows.answer(OfferAnswer::Install);
    EXPECT_TRUE(loop.runUntil([this] {
        return windows.window != Window::Download &&
               (windows.window != Window::Installing || installation.done);
    }));
    return windows.window;
}

std::vector<std::string> UpdaterTest::log() {
    return RecordedLog::take();
}

} // namespace pallistrom
