// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/devices/InputNode.h"

#include "TestKeyboard.h"

#include <gtest/gtest.h>
#include <linux/input.h>
#include <unistd.h>

#include <array>
#include <set>

namespace pallistrom::vm {

namespace {

// The types of all events that wait to be read.
std::set<unsigned> unreadTypes(const InputNode& node) {
    std::set<unsigned> types;
    std::array<input_event, 64> events{};
    for (auto size = ::read(node.descriptor(), events.data(), sizeof(events)); size > 0;
         size = ::read(node.descriptor(), events.data(), sizeof(events))) {
        for (std::size_t at = 0; at < static_cast<std::size_t>(size) / sizeof(input_event); ++at) {
            types.insert(events.at(at).type);
        }
    }
    return types;
}

TEST(InputNode, hearsWhatItWantsAndNothingElse) {
    TestKeyboard keyboard{
        {.name = "Pallistrom test keyboard", .extras = TestKeyboard::Extras::Lights}};
    const auto node = InputNode::open(keyboard.node());
    ASSERT_TRUE(node);

    node->hear(InputNode::Types{});
    keyboard.tap(KEY_A);
    EXPECT_EQ(unreadTypes(*node), std::set<unsigned>{});

    node->hear(InputNode::Types{}.set(EV_LED));
    keyboard.tap(KEY_A);
    EXPECT_EQ(unreadTypes(*node), std::set<unsigned>{});
    keyboard.sendEvent(EV_LED, LED_CAPSL, 1);
    EXPECT_EQ(unreadTypes(*node), (std::set<unsigned>{EV_SYN, EV_LED}));

    node->hear(InputNode::Types{}.set());
    keyboard.tap(KEY_A);
    EXPECT_TRUE(unreadTypes(*node).contains(EV_KEY));
}

} // namespace

} // namespace pallistrom::vm
