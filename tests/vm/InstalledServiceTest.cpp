// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "InstalledService.h"

#include "KeyboardStage.h"
#include "Seat.h"
#include "WaylandSession.h"
#include "pallistrom/Names.h"
#include "platform/linux/keyboardservice/KeyboardInterface.h"

#include <gtest/gtest.h>
#include <sched.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <string>

namespace pallistrom::vm {

namespace {

using KeyboardInterface::Access;
using KeyboardInterface::GrantAnswer;
using Person = InstalledService::Person;

const std::string service{Names::serviceProgram};

// What the kernel says of a process, by the names of its lines.
std::map<std::string, std::string> statusOf(pid_t process) {
    std::ifstream lines{"/proc/" + std::to_string(process) + "/status"};
    std::map<std::string, std::string> status;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words{line};
        std::string name;
        std::getline(words, name, ':');
        words >> status[name];
    }
    return status;
}

// As busctl prints an answer.
template<typename Answer>
std::string printed(Answer answer) {
    return "u " + std::to_string(static_cast<unsigned>(answer));
}

class InstalledServiceTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        KeyboardStage::clear();
        if (InstalledService::isPossible()) {
            s_service = std::make_unique<InstalledService>();
        }
    }

    static void TearDownTestSuite() {
        s_desktop.reset();
        s_service.reset();
    }

    void SetUp() override {
        if (!s_service) {
            GTEST_SKIP() << "systemd does not run";
        }
    }

    void TearDown() override {
        if (HasFailure()) {
            InstalledService::printLog();
        }
    }

    enum class Filtered : std::uint8_t { No, Yes };

    static void startDesktop() {
        s_desktop.reset();
        s_desktop.emplace(InstalledService::desktopOf(Person::First));
    }

    [[nodiscard]] bool isShown(Filtered filtered) {
        const std::string wanted =
            filtered == Filtered::Yes ? "+ctrl +bs -bs -ctrl" : "+ctrl +w -w -ctrl";
        m_seat.clear();
        useHardware({"key ctrl+w"});
        return wanted ==
               KeyScript::print(keysOf(m_seat.waitFor(
                   [](const Seat::Events& seen) { return keysOf(seen).size() >= 4; }, Deadline{})));
    }

    [[nodiscard]] bool becomes(Filtered filtered) {
        return waitUntil([&] { return isShown(filtered); }, WaylandSession::patience());
    }

    Seat& seat() { return m_seat; }

private:
    static inline std::unique_ptr<InstalledService> s_service;
    static inline std::optional<ChildProcess> s_desktop;

    Seat m_seat{"AT Translated Set 2 keyboard"};
};

TEST_F(InstalledServiceTest, isStartedByACallAndFiltersInItsSandbox) {
    EXPECT_EQ(InstalledService::property("ActiveState"), "inactive");
    startDesktop();
    ASSERT_TRUE(becomes(Filtered::Yes));

    EXPECT_EQ(InstalledService::property("ActiveState"), "active");
    const pid_t process = InstalledService::process();
    auto status = statusOf(process);
    EXPECT_NE(status["Uid"], "0");
    EXPECT_EQ(status["CapEff"], "0000000000000000");
    EXPECT_EQ(status["NoNewPrivs"], "1");
    EXPECT_EQ(status["Seccomp"], "2") << "calls are not filtered";
    EXPECT_EQ(::sched_getscheduler(process) & ~SCHED_RESET_ON_FORK, SCHED_FIFO);
    constexpr int kibibytes = 6 * 1024;
    EXPECT_LT(std::stoi(status["VmRSS"]), kibibytes);
    RecordProperty("VmRSS", status["VmRSS"]);
}

TEST_F(InstalledServiceTest, isExposedToLittle) {
    constexpr const char* atMost = "--threshold=10"; // That is, 1.0.
    EXPECT_NO_THROW(
        mustRun({"systemd-analyze", "security", "--no-pager", atMost, service + ".service"}));
}

TEST_F(InstalledServiceTest, givesNothingToSomebodyWithoutAGrant) {
    EXPECT_EQ(InstalledService::answerTo(Person::Second, "GetAccess"), printed(Access::NotGranted));
    EXPECT_EQ(InstalledService::answerTo(Person::Second, "RequestGrant"),
              printed(GrantAnswer::Denied))
        << "while somebody else is in front";

    InstalledService::bringToFront(Person::Second);
    EXPECT_EQ(InstalledService::answerTo(Person::Second, "RequestGrant"),
              printed(GrantAnswer::NoAgent));
    const ChildProcess desktop = InstalledService::desktopOf(Person::Second);
    EXPECT_TRUE(becomes(Filtered::No)) << "the desktop of the one who is not in front";
    EXPECT_EQ(InstalledService::answerTo(Person::Second, "GetAccess"), printed(Access::NotGranted));

    InstalledService::bringToFront(Person::First);
    EXPECT_TRUE(becomes(Filtered::Yes));
    EXPECT_EQ(seat().keysDown(), "");
}

TEST_F(InstalledServiceTest, forgetsAGrantThatIsWithdrawn) {
    ASSERT_EQ(InstalledService::answerTo(Person::First, "WithdrawGrant"), "");
    EXPECT_TRUE(becomes(Filtered::No));
    EXPECT_EQ(InstalledService::answerTo(Person::First, "GetAccess"), printed(Access::NotGranted));
    startDesktop();
    EXPECT_TRUE(becomes(Filtered::Yes));
}

TEST_F(InstalledServiceTest, isStartedAnewIfItHangs) {
    const pid_t hanging = InstalledService::process();
    useHardware({"down ctrl"});
    ASSERT_EQ(::kill(hanging, SIGSTOP), 0);
    // Its keyboards come back with its end.
    EXPECT_TRUE(
        waitUntil([this] { return seat().nodes().size() == 1; }, WaylandSession::patience()));
    useHardware({"up ctrl"});
    EXPECT_EQ(seat().keysDown(), "");

    startDesktop();
    EXPECT_TRUE(becomes(Filtered::Yes));
    EXPECT_NE(InstalledService::process(), hanging);
    EXPECT_EQ(InstalledService::property("NRestarts"), "1");
    EXPECT_EQ(seat().keysDown(), "");
}

TEST_F(InstalledServiceTest, leavesTheKeysAloneWhenItIsStoppedAndIsThereFromTheStart) {
    mustRun({"systemctl", "stop", service});
    EXPECT_EQ(InstalledService::property("Result"), "success");
    EXPECT_TRUE(becomes(Filtered::No));
    EXPECT_EQ(seat().keysDown(), "");

    // Since there is a grant.
    mustRun({"systemctl", "start", service + "-boot.service"});
    EXPECT_EQ(InstalledService::property("ActiveState"), "active");
    EXPECT_EQ(InstalledService::answerTo(Person::First, "GetAccess"), printed(Access::Granted));
}

} // namespace

} // namespace pallistrom::vm
