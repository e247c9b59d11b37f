// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keyboardservice/ServiceAnswers.h"

#include <gtest/gtest.h>

#include <limits>

namespace pallistrom {

namespace {

using KeyboardInterface::GrantAnswer;
using ServiceAnswers::grantAnswer;
using ServiceAnswers::obstacleOfAccess;
using ServiceAnswers::obstacleOfError;

TEST(ServiceAnswers, sayWhatKeepsTheServiceFromFiltering) {
    EXPECT_EQ(obstacleOfAccess(0), std::nullopt);
    EXPECT_EQ(obstacleOfAccess(1), Obstacle::NotGranted);
    EXPECT_EQ(obstacleOfAccess(2), Obstacle::Panicked);
    EXPECT_EQ(obstacleOfAccess(3), Obstacle::NotLocal);
    EXPECT_EQ(obstacleOfAccess(4), Obstacle::NoVirtualKeyboard);
}

TEST(ServiceAnswers, thatNobodyHasAgreedOnAreNoTrust) {
    EXPECT_EQ(obstacleOfAccess(5), Obstacle::ServiceMismatch);
    EXPECT_EQ(obstacleOfAccess(std::numeric_limits<std::uint32_t>::max()),
              Obstacle::ServiceMismatch);
    EXPECT_EQ(grantAnswer(4), std::nullopt);
    EXPECT_EQ(grantAnswer(std::numeric_limits<std::uint32_t>::max()), std::nullopt);
}

TEST(ServiceAnswers, sayWhatCameOfARequest) {
    EXPECT_EQ(grantAnswer(0), GrantAnswer::Granted);
    EXPECT_EQ(grantAnswer(1), GrantAnswer::Denied);
    EXPECT_EQ(grantAnswer(2), GrantAnswer::NoAgent);
    EXPECT_EQ(grantAnswer(3), GrantAnswer::Busy);
}

TEST(ServiceAnswers, thatAreErrorsSayWhetherThereIsAService) {
    EXPECT_EQ(obstacleOfError("org.freedesktop.DBus.Error.ServiceUnknown"),
              Obstacle::ServiceNotInstalled);
    EXPECT_EQ(obstacleOfError("org.freedesktop.DBus.Error.NameHasNoOwner"),
              Obstacle::ServiceNotInstalled);
    EXPECT_EQ(obstacleOfError("org.freedesktop.DBus.Error.UnknownMethod"),
              Obstacle::ServiceMismatch);
    EXPECT_EQ(obstacleOfError("org.freedesktop.DBus.Error.UnknownProperty"),
              Obstacle::ServiceMismatch);
    EXPECT_EQ(obstacleOfError("org.freedesktop.DBus.Error.NoReply"), Obstacle::ServiceSilent);
    EXPECT_EQ(obstacleOfError("org.freedesktop.systemd1.UnitMasked"), Obstacle::ServiceSilent);
    EXPECT_EQ(obstacleOfError("some.other.ServiceUnknown"), Obstacle::ServiceSilent);
    EXPECT_EQ(obstacleOfError(""), Obstacle::ServiceSilent);
}

} // namespace

} // namespace pallistrom
