// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/application/CommandLine.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace pallistrom {

namespace {

std::optional<std::string> answer(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "/usr/bin/pallistrom");
    return CommandLine::answer(arguments);
}

TEST(CommandLine, saysWhichVersionThisIs) {
    const auto text = answer({"--version"});
    ASSERT_TRUE(text);
    EXPECT_TRUE(text->starts_with("Pallistrom ")) << *text;
    EXPECT_EQ(text->find('\n'), std::string::npos);
}

TEST(CommandLine, letsTheProgramStartOtherwise) {
    EXPECT_EQ(answer({}), std::nullopt);
    EXPECT_EQ(answer({"--gapplication-service"}), std::nullopt);
    EXPECT_EQ(answer({"--version", "--more"}), std::nullopt);
    EXPECT_EQ(answer({"--versions"}), std::nullopt);
    EXPECT_EQ(CommandLine::answer({}), std::nullopt);
}

} // namespace

} // namespace pallistrom
