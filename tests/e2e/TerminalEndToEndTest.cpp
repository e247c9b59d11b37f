// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Field.h"
#include "Keys.h"
#include "Pallistrom.h"
#include "Shortcut.h"
#include "Tools.h"
#include "VirtualDisplay.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

namespace pallistrom::e2e {

namespace {

struct Terminal {
    std::string name;                 ///< for the titles of tests
    std::vector<std::string> command; ///< takes a shell command as its last argument
};

void PrintTo(const Terminal& terminal, std::ostream* out) {
    *out << terminal.name;
}

class Terminals : public testing::TestWithParam<Terminal> {};

std::string contentsOf(const std::filesystem::path& path) {
    std::ifstream file{path, std::ios::binary};
    return {std::istreambuf_iterator<char>{file}, {}};
}

TEST_P(Terminals, keepTheirKeysAndGiveThemBackToTheFieldBesideThem) {
    const std::string fieldProgram = std::string{FIELD_FOLDER} + "/field-qt6";
    const std::string missing = missingPrograms({"Xvfb",
                                                 "openbox",
                                                 "xdotool",
                                                 fieldProgram,
                                                 Pallistrom::path(),
                                                 GetParam().command.front()});
    if (!missing.empty()) {
        GTEST_SKIP() << missing;
    }
    const VirtualDisplay display;
    const Keys keys{display.name()};
    Pallistrom program{display.name()};
    program.setSwitches({{"ctrlW", true}, {"ctrlU", true}, {"ctrlK", true}});
    Field field{fieldProgram, display.name()};
    for (const Shortcut& shortcut : allShortcuts()) {
        if (shortcut.id != "altD") {
            EXPECT_TRUE(program.waitUntilGrabbed(shortcut.grab)) << shortcut.name;
        }
    }

    // What the shell would read, byte for byte.
    const Home home;
    const auto bytes = home.path() / "bytes";
    Command command{.arguments = GetParam().command,
                    .environment = home.environment(display.name())};
    command.arguments.push_back("stty raw -echo; touch " + bytes.string() +
                                "; dd bs=1 count=3 of=" + bytes.string());
    ChildProcess terminal{command};
    for (const Shortcut& shortcut : allShortcuts()) {
        EXPECT_TRUE(program.waitUntilReleased(shortcut.grab)) << shortcut.name;
    }
    ASSERT_TRUE(waitUntil([&] { return std::filesystem::exists(bytes); }));
    keys.play("+ctrl +w -w +u -u +k -k -ctrl");
    EXPECT_TRUE(waitUntil([&] { return contentsOf(bytes).size() == 3; }));
    EXPECT_EQ(contentsOf(bytes), "\x17\x15\x0b");

    // It closes, and the field comes to the front again.
    for (const Shortcut& shortcut : allShortcuts()) {
        if (shortcut.id != "altD") {
            EXPECT_TRUE(program.waitUntilGrabbed(shortcut.grab)) << shortcut.name;
        }
    }
    field.set({.text = "alpha beta", .cursor = 10});
    keys.play("+ctrl +w -w -ctrl");
    const TextState expected{.text = "alpha ", .cursor = 6};
    EXPECT_EQ(field.waitFor(expected), expected);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    Terminals,
    testing::Values(Terminal{"xterm", {"xterm", "-e", "sh", "-c"}},
                    Terminal{"vte", {"xfce4-terminal", "--disable-server", "-x", "sh", "-c"}}),
    [](const auto& test) { return test.param.name; });

} // namespace

} // namespace pallistrom::e2e
