// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "EventLoop.h"
#include "FakeConversation.h"
#include "FakeInstallation.h"
#include "FakeUpdateClock.h"
#include "LoopbackServer.h"
#include "SigningKey.h"
#include "TemporaryFolder.h"
#include "platform/linux/update/AppcastUpdater.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace pallistrom {

/// An updater whose feed is on a server of the test's own. What the test leaves in the log fails
/// it.
class UpdaterTest : public testing::Test {
protected:
    using Window = FakeConversation::Window;

    UpdaterTest();
    ~UpdaterTest() override;

    void SetUp() override;
    void TearDown() override;

    /// Publishes a feed that is signed with the right key.
    void publish(const std::string& items);

    /// Puts an archive on the server. Returns the element that tells of it.
    std::string archive(const std::string& name, const std::string& bytes);

    /// Starts the program: makes the updater, in the place of one that there is.
    void start();

    /// Waits until the window is there. Returns whether it has come.
    [[nodiscard]] bool comes(Window window);

    /// Lets the check that the updater has scheduled begin, and waits for its end. Returns the
    /// window that is open then.
    [[nodiscard]] Window checkByItself();

    /// Asks for a check and waits for its end. Returns the window that is open then.
    [[nodiscard]] Window checkNow();

    /// Waits until the user's agreement to an offer has come to an end, good or bad.
    [[nodiscard]] Window installNow();

    /// Returns the log since the last call, a line to a text.
    static std::vector<std::string> log();

    [[nodiscard]] std::filesystem::path stateFolder() const { return folder.path() / "state"; }

    [[nodiscard]] std::filesystem::path archiveFolder() const { return folder.path() / "update"; }

    EventLoop loop;
    TemporaryFolder folder;
    LoopbackServer server;
    SigningKey key;
    FakeConversation windows;
    FakeInstallation installation;
    FakeUpdateClock clock;
    UpdateSettings settings;
    UpdateLimits limits;
    std::string systemVersion = "6.1.0";
    std::unique_ptr<AppcastUpdater> updater;

private:
    std::ptrdiff_t m_threads; ///< how many there are besides those of the updater
};

} // namespace pallistrom
