// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Environment.h"
#include "FilteredKeyboard.h"
#include "KeyboardHost.h"
#include "KeyboardStage.h"
#include "LightsOf.h"
#include "Typist.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <optional>
#include <random>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace pallistrom::vm {

namespace {

constexpr const char* host = "keyboard_host --programs-keyboards";

std::size_t openFiles(pid_t process) {
    const std::filesystem::directory_iterator files{std::filesystem::path{"/proc"} /
                                                    std::to_string(process) / "fd"};
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
}

// A keyboard that is pulled out with keys held.

TEST(UnpluggedKeyboard, leavesNoKeyDownTwentyTimesOver) {
    KeyboardStage& stage = KeyboardStage::with(host);
    FilteredKeyboard& keyboard = stage.keyboard();
    std::optional<std::size_t> files;
    for (int time = 0; time < 20; ++time) {
        ASSERT_TRUE(keyboard.waitUntilFiltered()) << time;
        const std::size_t filesNow = openFiles(stage.host().process().id());
        EXPECT_EQ(files.value_or(filesNow), filesNow) << time;
        files = filesNow;

        keyboard.begin();
        keyboard.keyboard().press(KEY_LEFTCTRL);
        keyboard.keyboard().press(KEY_W);
        const auto shown = [](const Seat::Events& seen) {
            return keysOf(seen).size() >= 2;
        };
        EXPECT_EQ(KeyScript::print(keysOf(keyboard.seat().waitFor(shown, Deadline{}))),
                  "+ctrl +bs");
        keyboard.unplug();
        ASSERT_TRUE(waitUntil([&] { return keyboard.seat().nodes().empty(); }));
        EXPECT_EQ(keyboard.seat().keysDown(), "");
        keyboard.plugIn();
    }
}

TEST(UnpluggedKeyboard, leavesTheOtherOneAsItIs) {
    FilteredKeyboard& first = KeyboardStage::with(host).keyboard();
    FilteredKeyboard second{{.name = "Pallistrom second keyboard", .product = 2}};
    ASSERT_TRUE(second.waitUntilFiltered());
    first.begin();
    first.keyboard().press(KEY_LEFTSHIFT);
    second.keyboard().press(KEY_A);
    second.unplug();
    first.keyboard().release(KEY_LEFTSHIFT);
    EXPECT_EQ(first.end(), "+shift -shift");
}

TEST(TwoKeyboards, areOneToTheShortcuts) {
    FilteredKeyboard& first = KeyboardStage::with(host).keyboard();
    FilteredKeyboard second{{.name = "Pallistrom second keyboard", .product = 2}};
    ASSERT_TRUE(second.waitUntilFiltered());
    first.begin();
    second.begin();
    first.keyboard().press(KEY_LEFTCTRL);
    ASSERT_FALSE(
        first.seat()
            .waitFor([](const Seat::Events& seen) { return !keysOf(seen).empty(); }, Deadline{})
            .empty());
    second.keyboard().press(KEY_W);
    second.keyboard().release(KEY_W);
    EXPECT_EQ(second.end(), "+bs -bs");
    first.keyboard().release(KEY_LEFTCTRL);
    EXPECT_EQ(first.end(), "+ctrl -ctrl");
}

TEST(CombinedReceiver, sendsKeysAndMovementByTwoDevices) {
    static_cast<void>(KeyboardStage::with(host));
    FilteredKeyboard receiver{
        {.name = "Pallistrom receiver", .extras = TestKeyboard::Extras::Pointer}};
    ASSERT_TRUE(receiver.waitUntilFiltered());
    receiver.begin();
    receiver.keyboard().sendEvent(EV_REL, REL_X, 5);
    receiver.keyboard().press(KEY_LEFTCTRL);
    receiver.keyboard().tap(BTN_LEFT);
    receiver.keyboard().tap(KEY_W);
    receiver.keyboard().release(KEY_LEFTCTRL);
    receiver.keyboard().sendEvent(EV_REL, REL_WHEEL, -1);
    const auto isAll = [](const Seat::Events& seen) {
        return std::any_of(seen.begin(), seen.end(), [](const SeenEvent& event) {
            return event.type == EV_REL && event.code == REL_WHEEL;
        });
    };
    const Seat::Events seen = receiver.seat().waitFor(isAll, Deadline{});
    ASSERT_TRUE(isAll(seen));
    EXPECT_EQ(KeyScript::print(keysOf(seen)), "+ctrl +272 -272 +bs -bs -ctrl");
    for (const SeenEvent& event : seen) {
        EXPECT_NE(event.node, receiver.keyboard().node());
        for (const SeenEvent& other : seen) {
            const auto isPointers = [](const SeenEvent& e) {
                return e.type == EV_REL || (e.type == EV_KEY && e.code >= BTN_MISC);
            };
            if (event.type != EV_SYN && other.type != EV_SYN) {
                EXPECT_EQ(isPointers(event) == isPointers(other), event.node == other.node);
            }
        }
    }
}

TEST(Lights, areSwitchedByTheSessionAndByTheKeyboard) {
    static_cast<void>(KeyboardStage::with(host));
    FilteredKeyboard keyboard{
        {.name = "Pallistrom lit keyboard", .extras = TestKeyboard::Extras::Lights}};
    ASSERT_TRUE(keyboard.waitUntilFiltered());
    const LightsOf physical{keyboard.keyboard().node()};
    const auto nodes = keyboard.seat().nodes();
    const auto other = std::find_if(nodes.begin(), nodes.end(), [&](const auto& node) {
        return node != keyboard.keyboard().node();
    });
    ASSERT_NE(other, nodes.end());
    const LightsOf shown{*other};

    for (const bool isOn : {true, false, true}) {
        shown.set(LED_CAPSL, isOn);
        EXPECT_TRUE(waitUntil([&] { return physical.isLit(LED_CAPSL) == isOn; }))
            << "by the session";
    }
    for (const bool isOn : {false, true}) {
        keyboard.keyboard().sendEvent(EV_LED, LED_CAPSL, isOn ? 1 : 0);
        EXPECT_TRUE(waitUntil([&] { return shown.isLit(LED_CAPSL) == isOn; })) << "by the keyboard";
    }
    EXPECT_FALSE(physical.isLit(LED_NUML));
    EXPECT_FALSE(shown.isLit(LED_NUML));
}

// The kernel keeps only so much for a program that does not read.
TEST(StoppedHost, losesKeysButLeavesNoneDown) {
    KeyboardStage& stage = KeyboardStage::with(host);
    FilteredKeyboard& keyboard = stage.keyboard();
    keyboard.begin();
    keyboard.keyboard().press(KEY_LEFTSHIFT);
    stage.host().process().signal(SIGSTOP);
    for (int time = 0; time < 200; ++time) {
        keyboard.keyboard().tap(KEY_A);
    }
    keyboard.keyboard().release(KEY_LEFTSHIFT);
    keyboard.keyboard().press(KEY_X);
    stage.host().process().signal(SIGCONT);
    keyboard.keyboard().release(KEY_X);
    ASSERT_TRUE(keyboard.waitUntilFiltered());
    EXPECT_EQ(keyboard.seat().keysDown(), "");
    keyboard.begin();
    keyboard.keyboard().tap(KEY_A);
    EXPECT_EQ(keyboard.end(), "+a -a");
}

TEST(PanicChord, letsEverythingGo) {
    KeyboardStage& stage = KeyboardStage::with(host);
    FilteredKeyboard& keyboard = stage.keyboard();
    for (const int key : {KEY_BACKSPACE, KEY_ESC, KEY_ENTER}) {
        keyboard.keyboard().press(static_cast<EvdevCode>(key));
    }
    for (const int key : {KEY_ENTER, KEY_ESC, KEY_BACKSPACE}) {
        keyboard.keyboard().release(static_cast<EvdevCode>(key));
    }
    EXPECT_TRUE(keyboard.waitUntilUnfiltered());
    EXPECT_EQ(keyboard.seat().keysDown(), "");
    keyboard.begin();
    for (const auto& event : KeyScript::parse("+ctrl +w -w -ctrl")) {
        keyboard.keyboard().send(event.key, event.action);
    }
    EXPECT_EQ(keyboard.end(), "+ctrl +w -w -ctrl");
    KeyboardStage::clear();
}

// --- The service is killed while somebody types.

class KilledHost : public testing::Test {
protected:
    void SetUp() override { KeyboardStage::clear(); }

    using Time = std::chrono::nanoseconds;

    static Time now() { return std::chrono::steady_clock::now().time_since_epoch(); }

    // Waits until a key that is typed comes by way of a host that was started then.
    static bool waitUntilFilteredSince(Time start, FilteredKeyboard& keyboard) {
        const auto isFiltered = [start,
                                 physical = keyboard.keyboard().node()](const Seat::Events& seen) {
            return !seen.empty() && seen.back().time > start && seen.back().node != physical;
        };
        return isFiltered(keyboard.seat().waitFor(isFiltered, Deadline{std::chrono::minutes{2}}));
    }

    // Returns when the host was killed, and when it was gone for certain.
    static std::pair<Time, Time> kill(KeyboardHost& victim) {
        const Time before = now();
        victim.process().signal(SIGKILL);
        static_cast<void>(victim.process().wait(Deadline{std::chrono::minutes{1}}));
        return {before, now()};
    }
};

TEST_F(KilledHost, losesNothingOutsideTheRestartItself) {
    const std::uint64_t kills = Environment::number("PALLISTROM_KILLS", 200);
    // How far a host may be behind with reading when it is killed: what it had not passed on then
    // is gone with it.
    constexpr std::chrono::milliseconds lag{300};
    constexpr std::uint32_t seed = 1;
    std::mt19937 random{seed}; // NOLINT(cert-msc51-cpp): the same moments each time
    std::uniform_int_distribution<int> microseconds{0, 100'000};

    FilteredKeyboard keyboard{{.name = "Pallistrom test keyboard"}};
    std::vector<std::pair<Time, Time>> deaths;
    Typist typist{keyboard.keyboard()};
    for (std::uint64_t time = 0; time < kills; ++time) {
        const auto start = now();
        KeyboardHost victim{host};
        ASSERT_TRUE(waitUntilFilteredSince(start, keyboard)) << time;
        std::this_thread::sleep_for(std::chrono::microseconds{microseconds(random)});
        deaths.push_back(kill(victim));
    }
    const auto typed = typist.stop();
    const auto seen = keyboard.settle();
    ASSERT_TRUE(seen);
    ASSERT_FALSE(keyboard.seat().hasMissedSome());
    EXPECT_EQ(keyboard.seat().keysDown(), "");

    const TypingOutcome outcome = outcomeOf(typed, *seen);
    EXPECT_EQ(outcome.surplus, 0U);
    for (const TypedKey& lost : outcome.lost) {
        EXPECT_TRUE(std::any_of(deaths.begin(),
                                deaths.end(),
                                [&](const auto& death) {
                                    return lost.time > death.first - lag &&
                                           lost.time < death.second;
                                }))
            << KeyScript::nameOf(lost.key) << " was lost while a host was alive";
    }
    std::cout << deaths.size() << " kills, " << typed.size() << " keys typed, "
              << outcome.lost.size() << " lost with a host\n";
}

} // namespace

} // namespace pallistrom::vm
