// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/application/Successor.h"

#include "ChildProcess.h"
#include "Environment.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace pallistrom {

namespace {

using testing::ElementsAre;

TEST(Successor, hasTheSameArgumentsButForThoseOfTheOneStart) {
    EXPECT_THAT(Successor::arguments({"/bin/pallistrom", "-style", "fusion"}),
                ElementsAre("/bin/pallistrom", "-style", "fusion"));
    EXPECT_THAT(Successor::arguments({"/bin/pallistrom", "--gapplication-service"}),
                ElementsAre("/bin/pallistrom"));
}

TEST(Successor, goesOnInTheSameProcessAndFindsNothingLeftOpen) {
    const TemporaryFolder folder;
    const auto program = folder.path() / "program";
    const auto told = folder.path() / "told";
    std::ofstream(program) << "#!/bin/sh\n"
                              "echo \"$$ $XDG_ACTIVATION_TOKEN$DESKTOP_STARTUP_ID\" >'" +
                                  told.string() +
                                  "'\n"
                                  "[ ! -e /proc/$$/fd/50 ]\n";
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    ChildProcess child([&] {
        Environment::set("XDG_ACTIVATION_TOKEN", "x");
        Environment::set("DESKTOP_STARTUP_ID", "y");
        static_cast<void>(dup2(STDERR_FILENO, 50));
        Successor::start(program);
        return 100;
    });
    EXPECT_EQ(child.wait(), 0);
    std::ifstream file(told);
    const std::string words{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(words, std::to_string(child.id()) + " \n");
}

TEST(Successor, returnsIfThereIsNone) {
    const TemporaryFolder folder;
    ChildProcess child([&] {
        Successor::start(folder.path() / "missing");
        return 100;
    });
    EXPECT_EQ(child.wait(), 100);
}

} // namespace

} // namespace pallistrom
