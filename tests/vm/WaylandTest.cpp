// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Environment.h"
#include "HardwareKeys.h"
#include "KeyboardStage.h"
#include "Seat.h"
#include "ServiceOnBus.h"
#include "SessionField.h"
#include "WaylandSession.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <csignal>
#include <filesystem>
#include <memory>
#include <string>

namespace pallistrom::vm {

namespace {

// The service as it is installed, with a desktop program that wants it.
class HardwareKeyboard : public testing::Test {
protected:
    static void SetUpTestSuite() {
        KeyboardStage::clear();
        s_service = std::make_unique<ServiceOnBus>();
        s_service->startDesktop();
    }

    static void TearDownTestSuite() { s_service.reset(); }

    void SetUp() override { ASSERT_TRUE(becomes(Filtered::Yes)); }

    enum class Filtered : std::uint8_t { No, Yes };

    static ServiceOnBus& service() { return *s_service; }

    // Waits until control-W is a shortcut, or is none any more.
    [[nodiscard]] bool becomes(Filtered filtered) {
        const std::string wanted =
            filtered == Filtered::Yes ? "+ctrl +bs -bs -ctrl" : "+ctrl +w -w -ctrl";
        return waitUntil([&] { return shown("key ctrl+w", 4) == wanted; },
                         WaylandSession::patience());
    }

    // Returns what the session sees of what the hardware does, once it is so many keys.
    std::string shown(const std::string& command, std::size_t keys) {
        return shownBy(m_seat, command, keys);
    }

    Seat& seat() { return m_seat; }

private:
    static inline std::unique_ptr<ServiceOnBus> s_service;

    Seat m_seat{hardwareKeyboard};
};

TEST_F(HardwareKeyboard, hasAllFourShortcuts) {
    EXPECT_EQ(shown("key ctrl+w", 4), "+ctrl +bs -bs -ctrl");
    EXPECT_EQ(shown("key ctrl+u", 10), "+ctrl -ctrl +shift +home -home -shift +bs -bs +ctrl -ctrl");
    EXPECT_EQ(shown("key ctrl+k", 10), "+ctrl -ctrl +shift +end -end -shift +bs -bs +ctrl -ctrl");
    EXPECT_EQ(shown("key alt+d", 8), "+alt +ctrl -alt +del -del +alt -ctrl -alt");
    EXPECT_EQ(shown("key shift+a", 4), "+shift +a -a -shift");
}

TEST_F(HardwareKeyboard, isLeftAloneWhileTheSessionIsLocked) {
    service().setLocked(true);
    EXPECT_TRUE(becomes(Filtered::No));
    service().setLocked(false);
    EXPECT_TRUE(becomes(Filtered::Yes));
    EXPECT_EQ(seat().keysDown(), "");
}

TEST_F(HardwareKeyboard, isLeftAloneWhileTheSessionIsNotInFront) {
    useHardware({"down ctrl"});
    service().setActive(false);
    useHardware({"up ctrl"});
    EXPECT_TRUE(becomes(Filtered::No));
    service().setActive(true);
    EXPECT_TRUE(becomes(Filtered::Yes));
    EXPECT_EQ(seat().keysDown(), "");
}

TEST_F(HardwareKeyboard, keepsItsShortcutsWhenTheDesktopProgramStopsOrDies) {
    service().desktop().signal(SIGSTOP);
    EXPECT_EQ(shown("key ctrl+w", 4), "+ctrl +bs -bs -ctrl");
    service().desktop().signal(SIGCONT);
    useHardware({"down ctrl"});
    service().desktop().signal(SIGKILL);
    EXPECT_EQ(shown("key w", 2), "+bs -bs");
    useHardware({"up ctrl"});
    service().startDesktop();
    EXPECT_EQ(shown("key ctrl+w", 4), "+ctrl +bs -bs -ctrl");
    EXPECT_EQ(seat().keysDown(), "");
}

TEST_F(HardwareKeyboard, comesBackAfterTheServiceWasKilled) {
    useHardware({"down ctrl"});
    service().service().signal(SIGKILL);
    EXPECT_TRUE(waitUntil([this] { return seat().nodes().size() == 1; }));
    useHardware({"up ctrl"});
    EXPECT_EQ(seat().keysDown(), "");
    service().startService();
    service().startDesktop();
    EXPECT_TRUE(becomes(Filtered::Yes));
    EXPECT_EQ(seat().keysDown(), "");
}

class WaylandField : public HardwareKeyboard {};

TEST_F(WaylandField, isEditedByTheShortcuts) {
    const WaylandSession session;
    SessionField field{session, "field-gtk4"};
    useHardware({"type Hello brave new world"});
    EXPECT_EQ(field.waitFor("Hello brave new world"), "Hello brave new world");
    useHardware({"key ctrl+w"});
    EXPECT_EQ(field.waitFor("Hello brave new "), "Hello brave new ");
    useHardware({"picture after-control-w.png"});
    EXPECT_TRUE(std::filesystem::exists(Environment::value("VM_OUT") + "/after-control-w.png"));
    useHardware({"key ctrl+u"});
    EXPECT_EQ(field.waitFor(""), "");
    useHardware({"type one two", ",", "key home", ",", "key alt+d"});
    EXPECT_EQ(field.waitFor(" two"), " two");
    useHardware({"key ctrl+k"});
    EXPECT_EQ(field.waitFor(""), "");
}

} // namespace

} // namespace pallistrom::vm
