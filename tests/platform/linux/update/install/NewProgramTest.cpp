// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/NewProgram.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace pallistrom {

namespace {

// Class, byte order, and at the end the processor.
std::string header(char bits, char order, char system, std::string_view machine) {
    std::string text = "\177ELF";
    text += bits;
    text += order;
    text += '\1';
    text += system;
    text.resize(18);
    text += machine;
    text += '\0';
    return text + "more";
}

TEST(NewProgram, knowsAProcessorWhateverTheSystemCallsItself) {
    const std::string machine = NewProgram::machineIn(header(2, 1, 0, "\x3E"));
    EXPECT_FALSE(machine.empty());
    EXPECT_EQ(NewProgram::machineIn(header(2, 1, 3, "\x3E")), machine);
    EXPECT_NE(NewProgram::machineIn(header(1, 1, 0, "\x3E")), machine);
    EXPECT_NE(NewProgram::machineIn(header(2, 2, 0, "\x3E")), machine);
    EXPECT_NE(NewProgram::machineIn(header(2, 1, 0, "\xB7")), machine);
}

TEST(NewProgram, knowsWhatIsNone) {
    EXPECT_EQ(NewProgram::machineIn(""), "");
    EXPECT_EQ(NewProgram::machineIn("\177ELF"), "");
    EXPECT_EQ(NewProgram::machineIn("#!/bin/sh\nexit 0 # and more"), "");
    EXPECT_EQ(NewProgram::machineIn(header(2, 1, 0, "\x3E").substr(0, 19)), "");
}

} // namespace

} // namespace pallistrom
