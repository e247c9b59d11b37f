// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Deadline.h"
#include "Environment.h"
#include "EventLoop.h"
#include "SessionBus.h"
#include "SwayControl.h"
#include "SwayDisplay.h"
#include "Tools.h"
#include "platform/linux/front/FrontWatch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace pallistrom {

namespace {

using Clock = std::chrono::steady_clock;
using Microseconds = std::chrono::duration<double, std::micro>;

const std::string fieldProgram = FIELD_FOLDER "/field-gtk3";

/// A sway with a terminal and a text field on it, and what is told of them.
class SwayFront : public testing::Test {
protected:
    void SetUp() override {
        const std::string missing =
            e2e::missingPrograms({"sway", "setpriv", "foot", "dbus-daemon", fieldProgram});
        if (!missing.empty()) {
            GTEST_SKIP() << missing;
        }
        m_display.emplace();
        m_bus.emplace("");
        m_sway.emplace(m_display->runtimeFolder());
        Environment::unset("DISPLAY");
        Environment::unset("WAYLAND_SOCKET");
        Environment::set("WAYLAND_DISPLAY", m_display->socket());
    }

    ChildProcess start(const std::vector<std::string>& arguments) {
        return ChildProcess{{.arguments = arguments,
                             .environment = m_display->environment(*m_bus),
                             .errorFile = m_bus->home().path() / "windows.log"}};
    }

    ChildProcess startTerminal() { return start({"foot", "sleep", "1000"}); }

    ChildProcess startField() { return start({fieldProgram}); }

    void watch() {
        m_watch = FrontWatch::ofSession([this] { ++m_changes; });
    }

    [[nodiscard]] bool waitFor(std::optional<FrontApplication> application) {
        return m_loop.runUntil([&] { return m_watch->application() == application; });
    }

    [[nodiscard]] bool waitForWindow(const std::string& application) {
        const std::string entry = "\"app_id\": \"" + application + '"';
        return waitUntil([&] { return m_sway->tree().find(entry) != std::string::npos; });
    }

    EventLoop m_loop;
    std::optional<e2e::SwayDisplay> m_display;
    std::optional<e2e::SessionBus> m_bus;
    std::optional<SwayControl> m_sway;
    std::unique_ptr<FrontWatch> m_watch;
    int m_changes = 0;
};

constexpr auto terminal = FrontApplication::KeepsItsKeys;
constexpr auto field = FrontApplication::TakesEditingKeys;

TEST_F(SwayFront, isKnownAtOnceAndAtEachNewWindow) {
    watch();
    EXPECT_EQ(m_watch->application(), std::nullopt);
    EXPECT_TRUE(waitFor(field)); // The desktop is empty.

    const ChildProcess foot = startTerminal();
    EXPECT_TRUE(waitFor(terminal));
    const ChildProcess gtk = startField();
    EXPECT_TRUE(waitFor(field));

    // A program that starts later is told of what is there.
    ASSERT_TRUE(m_sway->run("[app_id=foot] focus"));
    watch();
    EXPECT_TRUE(waitFor(terminal));
}

TEST_F(SwayFront, isRightAfterEachOfAHundredFastSwitches) {
    const ChildProcess foot = startTerminal();
    watch();
    ASSERT_TRUE(waitFor(terminal));
    const ChildProcess gtk = startField();
    ASSERT_TRUE(waitFor(field));

    std::vector<Microseconds> waits;
    for (int i = 0; i < 100; ++i) {
        const bool toTerminal = i % 2 == 0;
        const auto begin = Clock::now();
        ASSERT_TRUE(m_sway->run(toTerminal ? "[app_id=foot] focus" : "[app_id=field-gtk3] focus"));
        ASSERT_TRUE(waitFor(toTerminal ? terminal : field)) << i;
        waits.emplace_back(Clock::now() - begin);
    }
    std::sort(waits.begin(), waits.end());
    std::printf("from the command to sway to the push: median %.0f us, longest %.0f us\n",
                waits[waits.size() / 2].count(),
                waits.back().count());

    // All at once: what counts is how it ends, and nobody is told more often than it changed.
    m_loop.drain();
    m_changes = 0;
    for (int i = 0; i < 100; ++i) {
        ASSERT_TRUE(m_sway->run(i % 2 == 0 ? "[app_id=field-gtk3] focus" : "[app_id=foot] focus"));
    }
    EXPECT_TRUE(waitFor(terminal));
    m_loop.drain();
    EXPECT_EQ(m_watch->application(), terminal);
    EXPECT_LE(m_changes, 100);
}

TEST_F(SwayFront, keepsWhatWasInFrontWhileNobodyIs) {
    const ChildProcess gtk = startField();
    ASSERT_TRUE(waitForWindow("field-gtk3"));
    const ChildProcess foot = startTerminal();
    ASSERT_TRUE(waitForWindow("foot"));
    watch();
    ASSERT_TRUE(waitFor(terminal));
    m_changes = 0;
    // A workspace without windows in between.
    ASSERT_TRUE(m_sway->run("workspace elsewhere"));
    m_loop.drain();
    EXPECT_EQ(m_watch->application(), terminal);
    ASSERT_TRUE(m_sway->run("[app_id=field-gtk3] focus"));
    EXPECT_TRUE(waitFor(field));
    EXPECT_EQ(m_changes, 1);
}

TEST_F(SwayFront, isUnknownOnceSwayHasGone) {
    const ChildProcess gtk = startField();
    ASSERT_TRUE(waitForWindow("field-gtk3"));
    watch();
    ASSERT_TRUE(waitFor(field));
    m_display.reset();
    EXPECT_TRUE(waitFor(std::nullopt));
}

} // namespace

} // namespace pallistrom
