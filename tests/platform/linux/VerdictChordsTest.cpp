// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/VerdictChords.h"

#include "platform/linux/keys/ChordFlags.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <array>
#include <vector>

namespace pallistrom {

namespace {

using namespace ChordFlags;

constexpr std::int64_t deleteKey = 51;
constexpr std::int64_t rightKey = 124;
constexpr std::int64_t noSuchKey = 9999;

using Chords = std::vector<LinuxChord>;

KeyVerdict rewritten(std::int64_t keyCode, CGEventFlags flags) {
    return {.posted = {}, .event = CGEvent{keyCode, flags, true}, .isUntouched = false};
}

KeyVerdict dropped(std::span<const CGEvent> posted) {
    return {.posted = posted, .event = std::nullopt, .isUntouched = false};
}

Chords chordsOf(const VerdictChords& verdict) {
    const auto replacement = verdict.replacement();
    return replacement ? Chords(replacement->chords.begin(), replacement->chords.end()) : Chords{};
}

TEST(VerdictChords, leaveAnUntouchedEventAlone) {
    const VerdictChords verdict(
        {.posted = {}, .event = CGEvent{deleteKey, option, true}, .isUntouched = true});
    EXPECT_FALSE(verdict.replacement());
}

TEST(VerdictChords, areTheDesktopsOwnKeysForARewrittenEvent) {
    const VerdictChords verdict(rewritten(deleteKey, option));
    ASSERT_TRUE(verdict.replacement());
    EXPECT_TRUE(verdict.replacement()->isTheKeyItself);
    EXPECT_EQ(chordsOf(verdict), (Chords{{KEY_BACKSPACE, control}}));
}

TEST(VerdictChords, maySpeakOfSeveralKeystrokesForARewrittenEvent) {
    const VerdictChords verdict(rewritten(deleteKey, command));
    EXPECT_EQ(chordsOf(verdict), (Chords{{KEY_HOME, shift}, {KEY_BACKSPACE, 0}}));
}

TEST(VerdictChords, areNoneForASwallowedEvent) {
    const VerdictChords verdict(dropped({}));
    ASSERT_TRUE(verdict.replacement());
    EXPECT_TRUE(verdict.replacement()->chords.empty());
    EXPECT_FALSE(verdict.replacement()->isTheKeyItself);
}

TEST(VerdictChords, areNoneForAKeyThatLinuxDoesNotHave) {
    const VerdictChords verdict(rewritten(noSuchKey, 0));
    ASSERT_TRUE(verdict.replacement());
    EXPECT_TRUE(verdict.replacement()->chords.empty());
}

TEST(VerdictChords, areOneForEachPostedPressAndRelease) {
    const std::array posted{CGEvent{rightKey, shift | command, true},
                            CGEvent{rightKey, shift | command, false},
                            CGEvent{deleteKey, 0, true},
                            CGEvent{deleteKey, 0, false}};
    const VerdictChords verdict(dropped(posted));
    ASSERT_TRUE(verdict.replacement());
    EXPECT_FALSE(verdict.replacement()->isTheKeyItself);
    EXPECT_EQ(chordsOf(verdict), (Chords{{KEY_END, shift}, {KEY_BACKSPACE, 0}}));
}

TEST(VerdictChords, haveTheEventItselfAfterWhatWasPosted) {
    const std::array posted{CGEvent{rightKey, 0, true}, CGEvent{rightKey, 0, false}};
    const VerdictChords verdict(
        {.posted = posted, .event = CGEvent{deleteKey, 0, true}, .isUntouched = false});
    ASSERT_TRUE(verdict.replacement());
    EXPECT_FALSE(verdict.replacement()->isTheKeyItself);
    EXPECT_EQ(chordsOf(verdict), (Chords{{KEY_RIGHT, 0}, {KEY_BACKSPACE, 0}}));
}

TEST(VerdictChords, knowWhichModifiersAllOfThemNeedAndWhichOnlySome) {
    const std::array posted{CGEvent{rightKey, shift | option, true},
                            CGEvent{rightKey, shift | option, false},
                            CGEvent{deleteKey, option, true},
                            CGEvent{deleteKey, option, false}};
    // Option and an arrow or a delete is control on a Linux desktop.
    const VerdictChords verdict(dropped(posted));
    EXPECT_EQ(verdict.flagsOfAll(), control);
    EXPECT_EQ(verdict.flagsOfSome(), shift);
}

TEST(VerdictChords, needNoModifiersIfThereAreNone) {
    const VerdictChords verdict(dropped({}));
    EXPECT_EQ(verdict.flagsOfAll(), 0U);
    EXPECT_EQ(verdict.flagsOfSome(), 0U);
}

TEST(VerdictChords, outliveWhatTheyWereMadeOf) {
    std::vector<CGEvent> posted{{deleteKey, 0, true}};
    const VerdictChords verdict(dropped(posted));
    posted.clear();
    posted.shrink_to_fit();
    EXPECT_EQ(chordsOf(verdict), (Chords{{KEY_BACKSPACE, 0}}));
}

} // namespace

} // namespace pallistrom
