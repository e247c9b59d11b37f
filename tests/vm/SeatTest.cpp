// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Seat.h"

#include "TestKeyboard.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <optional>
#include <string>

namespace pallistrom::vm {

namespace {

// The instruments of the other tests, without any service.

constexpr const char* name = "Pallistrom test keyboard";

std::string waitForKeys(Seat& seat, std::size_t count) {
    return KeyScript::print(keysOf(
        seat.waitFor([count](const Seat::Events& events) { return keysOf(events).size() >= count; },
                     Deadline{std::chrono::seconds{30}})));
}

TEST(SeatWithoutAService, seesWhatIsTypedOnAnyOfItsKeyboards) {
    TestKeyboard first({.name = name});
    Seat seat(name);
    TestKeyboard second({.name = name, .product = 2});
    ASSERT_TRUE(waitUntil([&seat] { return seat.nodes().size() == 2; }));
    first.press(KEY_A);
    second.tap(KEY_X);
    first.release(KEY_A);
    EXPECT_EQ(waitForKeys(seat, 4), "+a +x -x -a");
    EXPECT_FALSE(seat.hasMissedSome());
}

TEST(SeatWithoutAService, seesTheKeysOfAKeyboardGoUpThatIsUnplugged) {
    Seat seat(name);
    auto keyboard = std::make_optional<TestKeyboard>(TestKeyboard::Description{.name = name});
    ASSERT_TRUE(waitUntil([&seat] { return seat.nodes().size() == 1; }));
    keyboard->press(KEY_LEFTCTRL);
    EXPECT_EQ(waitForKeys(seat, 1), "+ctrl");
    keyboard.reset();
    EXPECT_EQ(waitForKeys(seat, 2), "+ctrl -ctrl");
    EXPECT_TRUE(waitUntil([&seat] { return seat.nodes().empty(); }));
}

} // namespace

} // namespace pallistrom::vm
