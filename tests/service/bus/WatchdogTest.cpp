// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/Watchdog.h"

#include "Environment.h"
#include "Loop.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <stdexcept>
#include <string>
#include <vector>

namespace pallistrom {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Who has started the service, and hears what it says.
class Starter {
public:
    Starter() : m_socket{socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)} {
        const std::string path = m_folder.path() / "notify";
        sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): so the system wants it
        if (bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
            throw std::runtime_error{"no socket"};
        }
        Environment::set("NOTIFY_SOCKET", path);
        Environment::set("WATCHDOG_USEC", "90000");
        Environment::set("WATCHDOG_PID", std::to_string(getpid()));
    }

    Starter(const Starter&) = delete;
    Starter& operator=(const Starter&) = delete;

    ~Starter() {
        close(m_socket);
        for (const char* name : {"NOTIFY_SOCKET", "WATCHDOG_USEC", "WATCHDOG_PID"}) {
            Environment::unset(name);
        }
    }

    std::vector<std::string> heard() const {
        std::vector<std::string> messages;
        std::array<char, 512> buffer{};
        ssize_t count = 0;
        while ((count = recv(m_socket, buffer.data(), buffer.size(), 0)) > 0) {
            messages.emplace_back(buffer.data(), static_cast<std::size_t>(count));
        }
        return messages;
    }

private:
    TemporaryFolder m_folder;
    int m_socket;
};

} // namespace

TEST(Watchdog, isCalledOffWithTheReadiness) {
    const Starter starter;
    const Loop loop;
    Watchdog watchdog{loop.get()};
    watchdog.ready("well");
    EXPECT_THAT(starter.heard(), ElementsAre("READY=1\nSTATUS=well\nWATCHDOG_USEC=0"));
}

TEST(Watchdog, isFedWhileKeyboardsAreGrabbedAndAtNoOtherTime) {
    const Starter starter;
    const Loop loop;
    Watchdog watchdog{loop.get()};
    watchdog.setGrabbing(false);
    EXPECT_THAT(starter.heard(), IsEmpty());

    watchdog.setGrabbing(true);
    EXPECT_THAT(starter.heard(), ElementsAre("WATCHDOG_USEC=90000", "WATCHDOG=1"));
    watchdog.setGrabbing(true);
    EXPECT_THAT(starter.heard(), IsEmpty());
    int fed = 0;
    EXPECT_TRUE(loop.runUntil([&] {
        const auto messages = starter.heard();
        EXPECT_THAT(messages, testing::Each("WATCHDOG=1"));
        fed += static_cast<int>(messages.size());
        return fed >= 3;
    }));

    watchdog.setGrabbing(false);
    EXPECT_THAT(starter.heard(), ElementsAre("WATCHDOG_USEC=0"));
    // Nothing is left on the loop that could wake it.
    EXPECT_EQ(sd_event_run(loop.get(), 0), 0);
    EXPECT_THAT(starter.heard(), IsEmpty());
}

TEST(Watchdog, isNotBotheredWhereNobodyAskedForOne) {
    const Starter starter;
    Environment::unset("WATCHDOG_USEC");
    const Loop loop;
    Watchdog watchdog{loop.get()};
    watchdog.ready("well");
    watchdog.setGrabbing(true);
    EXPECT_THAT(starter.heard(), ElementsAre("READY=1\nSTATUS=well"));
}

} // namespace pallistrom
