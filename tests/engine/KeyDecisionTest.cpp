// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "engine/KeyDecision.h"

#include "engine/ShortcutLibrary.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pallistrom {

namespace {

// The rules need no platform at all: they are values in, values out.

TEST(Decision, asksNothingOfAnEmptyList) {
    const auto decision = decide({}, {.keyCode = 13, .flags = 0x40000}, [](std::string_view) {
        ADD_FAILURE();
        return true;
    });
    EXPECT_TRUE(std::holds_alternative<PassUnchanged>(decision));
}

TEST(Decision, asksForTheSwitchBeforeItLooksAtTheKey) {
    std::vector<std::string> asked;
    const auto decision =
        decide(ShortcutLibrary::all, {.keyCode = 99, .flags = 0}, [&](std::string_view id) {
            asked.emplace_back(id);
            return false;
        });
    EXPECT_TRUE(std::holds_alternative<PassUnchanged>(decision));
    EXPECT_EQ(asked, (std::vector<std::string>{"ctrlW", "ctrlU", "ctrlK", "altD"}));
}

TEST(Decision, isOneOfThreeForEveryKeyAndEveryMask) {
    const auto on = [](std::string_view) {
        return true;
    };
    int rewritten = 0;
    int dropped = 0;
    for (std::int64_t keyCode = 0; keyCode < 128; ++keyCode) {
        for (CGEventFlags bits = 0; bits < 64; ++bits) {
            const CGEventFlags flags = bits << 16U; // caps lock up to command, and one bit more
            const auto decision = decide(ShortcutLibrary::all, {keyCode, flags}, on);
            rewritten += std::holds_alternative<ChangeInto>(decision) ? 1 : 0;
            dropped += std::holds_alternative<DropAfterPosting>(decision) ? 1 : 0;
        }
    }
    // Three of six bits are free for each of the four shortcuts.
    EXPECT_EQ(rewritten, 3 * 8);
    EXPECT_EQ(dropped, 8);
}

TEST(Decision, postsNothingForTheReleaseOfASequence) {
    const auto on = [](std::string_view) {
        return true;
    };
    const auto decision =
        decide(ShortcutLibrary::all, {40, kCGEventFlagMaskControl, KeyDirection::Up}, on);
    EXPECT_TRUE(std::get<DropAfterPosting>(decision).chords.empty());
}

} // namespace

} // namespace pallistrom
