// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/UpdateState.h"

#include <gtest/gtest.h>

#include <string>

namespace pallistrom {

namespace {

UpdateState full() {
    return {.lastCheck = 1800000000,
            .checksByItself = false,
            .skippedVersion = "1.2",
            .newestVersion = "1.3",
            .rollOutGroup = 6};
}

TEST(UpdateState, isWrittenAsItIsRead) {
    EXPECT_EQ(UpdateState::parse(full().text()), full());
    EXPECT_EQ(UpdateState::parse(UpdateState().text()), UpdateState());
    EXPECT_EQ(UpdateState::parse(""), UpdateState());
}

TEST(UpdateState, mayBeEditedByPeople) {
    EXPECT_EQ(UpdateState::parse("\n# mine\n  checks-by-itself=no\r\nnewest-version=2\n"),
              (UpdateState{.checksByItself = false, .newestVersion = "2"}));
}

TEST(UpdateState, mayHaveLinesOfALaterVersion) {
    EXPECT_EQ(UpdateState::parse("later=1\n" + full().text()), full());
}

TEST(UpdateState, isNothingIfItIsDamaged) {
    for (const std::string bad : {"nonsense",
                                  "last-check=",
                                  "last-check=-1",
                                  "last-check=1e5",
                                  "last-check=99999999999999999999",
                                  "checks-by-itself=maybe",
                                  "skipped-version=",
                                  "skipped-version=none",
                                  "newest-version=1 2",
                                  "roll-out-group=7",
                                  "roll-out-group=-1"}) {
        EXPECT_EQ(UpdateState::parse(bad), std::nullopt) << bad;
        EXPECT_EQ(UpdateState::parse(full().text() + bad), std::nullopt) << bad;
    }
    EXPECT_EQ(UpdateState::parse(std::string(5, '\0')), std::nullopt);
}

} // namespace

} // namespace pallistrom
