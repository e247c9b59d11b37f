// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/Log.h"

#include "Environment.h"
#include "InChildProcess.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom {

namespace {

using namespace std::string_literals;

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::MatchesRegex;

// A stand-in for the error stream, in a child process.
class ErrorStream {
public:
    ErrorStream() {
        EXPECT_EQ(pipe2(m_ends.data(), O_NONBLOCK | O_CLOEXEC), 0);
        dup2(m_ends[1], STDERR_FILENO);
    }

    // How systemd would name it to a program whose error stream it reads.
    static std::string journalName() {
        struct stat file {};

        EXPECT_EQ(fstat(STDERR_FILENO, &file), 0);
        return std::to_string(file.st_dev) + ':' + std::to_string(file.st_ino);
    }

    std::string take() {
        std::array<char, 4096> room{};
        const ssize_t size = read(m_ends[0], room.data(), room.size());
        return {room.data(), size < 0 ? 0 : static_cast<std::size_t>(size)};
    }

private:
    std::array<int, 2> m_ends{-1, -1};
};

// A stand-in for the system log, in a child process with mounts of its own.
class SystemLog {
public:
    // Returns whether programs of this process find it.
    bool open() {
        m_socket = socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::string_view("/dev/log").copy(&address.sun_path[0], sizeof(address.sun_path) - 1);
        return InChildProcess::takeOwnMounts() &&
               mount("none", "/dev", "tmpfs", 0, "size=64k") == 0 &&
               bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) ==
                   0; // NOLINT(cppcoreguidelines-pro-type-reinterpret-cast)
    }

    std::vector<std::string> take() const {
        std::vector<std::string> lines;
        std::array<char, 4096> room{};
        for (ssize_t size = 0; (size = recv(m_socket, room.data(), room.size(), 0)) >= 0;) {
            lines.emplace_back(room.data(), static_cast<std::size_t>(size));
        }
        return lines;
    }

private:
    int m_socket = -1;
};

TEST(Log, goesToTheErrorStreamLineByLine) {
    InChildProcess::run([] {
        ErrorStream errors;
        Environment::unset("JOURNAL_STREAM");
        NSLog("Pallistrom: one thing");
        NSLog("Pallistrom: another");
        EXPECT_THAT(errors.take(),
                    MatchesRegex("[^\n]*: Pallistrom: one thing\n[^\n]*: Pallistrom: another\n"));
    });
}

TEST(Log, takesItsLinesAsTheyStand) {
    InChildProcess::run([] {
        ErrorStream errors;
        Environment::unset("JOURNAL_STREAM");
        constexpr std::string_view text = "Pallistrom: 100%s and more";
        NSLog(text.substr(0, text.find(" and")));
        EXPECT_THAT(errors.take(), EndsWith("Pallistrom: 100%s\n"));
    });
}

TEST(Log, goesToTheErrorStreamIfTheJournalReadsAnotherOne) {
    for (const std::string& name : {"1:1"s, "nonsense"s, ""s}) {
        InChildProcess::run([&] {
            ErrorStream errors;
            Environment::set("JOURNAL_STREAM", name);
            NSLog("Pallistrom: a line");
            EXPECT_THAT(errors.take(), EndsWith("Pallistrom: a line\n"));
        });
    }
}

TEST(Log, isOnceInTheJournalThatReadsTheErrorStreamToo) {
    InChildProcess::run([] {
        ErrorStream errors;
        Environment::set("JOURNAL_STREAM", ErrorStream::journalName());
        SystemLog log;
        if (!log.open()) {
            GTEST_SKIP() << "no mounts of our own to put a system log on";
        }
        NSLog("Pallistrom: a line");
        EXPECT_THAT(log.take(), ElementsAre(EndsWith(": Pallistrom: a line")));
        EXPECT_THAT(errors.take(), IsEmpty());
    });
}

TEST(Log, goesToTheSystemLogOnceAndToTheErrorStreamWithTheNameOfTheProcess) {
    InChildProcess::run([] {
        ErrorStream errors;
        Environment::unset("JOURNAL_STREAM");
        SystemLog log;
        if (!log.open()) {
            GTEST_SKIP() << "no mounts of our own to put a system log on";
        }
        NSLog("Pallistrom: a line");
        const std::string name = "log_tests[" + std::to_string(getpid()) + "]: ";
        EXPECT_THAT(log.take(), ElementsAre("<13>" + name + "Pallistrom: a line"));
        EXPECT_EQ(errors.take(), name + "Pallistrom: a line\n");
    });
}

} // namespace

} // namespace pallistrom
