// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/clients/UserLog.h"

#include "People.h"
#include "RecordedLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pallistrom {

namespace {

using About = UserLog::About;
using testing::ElementsAre;
using testing::IsEmpty;

class UserLogTest : public testing::Test {
protected:
    UserLogTest() { static_cast<void>(RecordedLog::take()); }

    UserLog log;
};

TEST_F(UserLogTest, saysWhatIsNewOfAUser) {
    log.say(ann, About::Access, "has access");
    log.say(bob, About::Access, "has access");
    log.say(ann, About::Grant, "has access");
    EXPECT_THAT(RecordedLog::take(),
                ElementsAre("Pallistrom: user 1000 has access",
                            "Pallistrom: user 1001 has access",
                            "Pallistrom: user 1000 has access"));
}

TEST_F(UserLogTest, doesNotSayTheSameTwiceInARow) {
    for (int i = 0; i < 1000; ++i) {
        log.say(ann, About::Access, "has access");
    }
    log.say(ann, About::Access, "has none");
    log.say(ann, About::Access, "has access");
    EXPECT_EQ(RecordedLog::take().size(), 3U);
}

TEST_F(UserLogTest, doesNotRememberWithoutEnd) {
    log.say(ann, About::Access, "has access");
    for (std::size_t i = 0; i < UserLog::mostRemembered; ++i) {
        log.say(bob + static_cast<UserId>(i), About::Access, "has none");
    }
    static_cast<void>(RecordedLog::take());
    log.say(ann, About::Access, "has access");
    EXPECT_EQ(RecordedLog::take().size(), 1U) << "it has been forgotten";
    log.say(ann, About::Access, "has access");
    EXPECT_THAT(RecordedLog::take(), IsEmpty());
}

} // namespace

} // namespace pallistrom
