// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/SystemLog.h"

#include "FileDescriptor.h"
#include "InChildProcess.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <string>

namespace pallistrom {

namespace {

using testing::EndsWith;
using testing::StartsWith;

// A log that reads no line unless it is told to.
class LazyLog {
public:
    LazyLog() : m_socket(socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path().copy(&address.sun_path[0], sizeof(address.sun_path) - 1);
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast)
        const auto* const named = reinterpret_cast<const sockaddr*>(&address);
        EXPECT_EQ(bind(m_socket.get(), named, sizeof(address)), 0);
    }

    std::string path() const { return (m_folder.path() / "log").string(); }

    // Returns an empty line if there is none.
    std::string readLine() const {
        std::array<char, 4096> room{};
        const ssize_t size = recv(m_socket.get(), room.data(), room.size(), 0);
        return {room.data(), size < 0 ? 0 : static_cast<std::size_t>(size)};
    }

private:
    TemporaryFolder m_folder;
    FileDescriptor m_socket;
};

TEST(SystemLogs, areNotWaitedForIfNobodyReadsThem) {
    // In a process of its own, which can be seen not to end.
    InChildProcess::run([] {
        const LazyLog log;
        int taken = 0;
        for (int i = 0; i < 1000; ++i) {
            taken += SystemLog::send(log.path(), "line " + std::to_string(i)) ? 1 : 0;
        }
        EXPECT_GT(taken, 0);
        EXPECT_LT(taken, 1000) << "nobody has read, so there cannot have been room for all";
        for (int i = 0; i < taken; ++i) {
            EXPECT_THAT(log.readLine(), EndsWith("]: line " + std::to_string(i)));
        }
        EXPECT_TRUE(SystemLog::send(log.path(), "once more")) << "there is room again";
        EXPECT_THAT(log.readLine(), EndsWith("]: once more"));
    });
}

TEST(SystemLogs, sayWhatKindOfLineItIsAndWhose) {
    const LazyLog log;
    EXPECT_TRUE(SystemLog::send(log.path(), "a line"));
    EXPECT_EQ(log.readLine(), "<13>" + SystemLog::nameOfThisProcess() + "a line");
}

TEST(SystemLogs, takeNoLineThatIsTooLong) {
    const LazyLog log;
    EXPECT_FALSE(SystemLog::send(log.path(), std::string(std::size_t{64} * 1024 * 1024, 'x')));
    EXPECT_TRUE(SystemLog::send(log.path(), "a line"));
    EXPECT_THAT(log.readLine(), StartsWith("<13>"));
}

TEST(SystemLogs, mayBeMissing) {
    const TemporaryFolder folder;
    EXPECT_FALSE(SystemLog::send((folder.path() / "none").string(), "a line"));
    EXPECT_FALSE(SystemLog::send(std::string(200, 'x'), "a line")) << "no socket has such a path";
}

} // namespace

} // namespace pallistrom
