// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "CountedAllocations.h"
#include "KeyScript.h"
#include "KeyboardsUnderTest.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace pallistrom {

namespace {

class KeysOfTheService : public testing::Test {
public:
    KeysOfTheService() {
        // What the hardware notes down is none of the service's memory.
        hardware.keyboardEvents.reserve(100'000);
        hardware.pointerEvents.reserve(1'000);
        machine.plugIn(hardware);
        machine.allow();
    }

protected:
    // Returns how often the service allocates while it takes the keys of `script`.
    std::size_t allocationsOf(std::string_view script) {
        std::size_t allocations = 0;
        for (const KeyScript::Event& event : KeyScript::parse(script)) {
            hardware.key(event.key,
                         event.action == KeyAction::Release  ? 0
                         : event.action == KeyAction::Repeat ? 2
                                                             : 1);
            const std::size_t before = countedAllocations();
            machine.serve(hardware);
            machine.advanceToTheEnd();
            allocations += countedAllocations() - before;
        }
        return allocations;
    }

    FakeHardware hardware;
    KeyboardsUnderTest machine;
};

TEST_F(KeysOfTheService, areCountedIfTheyAllocate) {
    const std::size_t before = countedAllocations();
    const auto something = std::make_unique<std::string>(100, 'x');
    EXPECT_EQ(countedAllocations() - before, 2U) << something->size();
}

TEST_F(KeysOfTheService, allocateNothingWhenTheyPass) {
    EXPECT_EQ(allocationsOf("+a ~a -a +shift +w -w -shift"), 0U);
    EXPECT_FALSE(hardware.keyboardEvents.empty());
}

TEST_F(KeysOfTheService, allocateNothingWhenTheyAreShortcuts) {
    EXPECT_EQ(allocationsOf("+ctrl +w ~w -w +u ~u -u +k ~k -k -ctrl +alt +d ~d -d -alt"), 0U);
    EXPECT_EQ(allocationsOf("+ctrl +shift +k -shift ~k -ctrl -k"), 0U);
    EXPECT_TRUE(hardware.seenOfKeyboard.down().none());
}

} // namespace

} // namespace pallistrom
