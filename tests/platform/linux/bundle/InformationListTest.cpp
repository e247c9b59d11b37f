// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/bundle/InformationList.h"

#include "TemporaryFolder.h"
#include "pallistrom/Names.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;

TEST(InformationList, holdsTexts) {
    const auto list = InformationList::parse(R"({"a": "1.2", "b": "", "c": "ü—\u0041"})");
    EXPECT_EQ(list.entry("a"), "1.2");
    EXPECT_EQ(list.entry("b"), "");
    EXPECT_EQ(list.entry("c"), "ü—A");
}

TEST(InformationList, holdsNothingElse) {
    const auto list =
        InformationList::parse(R"({"a": 1, "b": true, "c": null, "d": ["x"], "e": {"f": "x"}})");
    for (const std::string_view key : {"a", "b", "c", "d", "e", "f", ""}) {
        EXPECT_EQ(list.entry(key), std::nullopt) << key;
    }
}

TEST(InformationList, isEmptyIfItIsBroken) {
    for (const std::string& text : {std::string(),
                                    std::string(R"({"a": "1")"),
                                    std::string(R"(["a"])"),
                                    std::string(R"("a")"),
                                    std::string("{\"a\": \"\xff\"}"),
                                    std::string("\0", 1),
                                    std::string(100000, '['),
                                    std::string("a: 1")}) {
        EXPECT_EQ(InformationList::parse(text).entry("a"), std::nullopt) << text.substr(0, 20);
    }
}

class InformationListOfAProgram : public testing::Test {
public:
    InformationListOfAProgram() {
        fs::create_directories(installed.parent_path());
        fs::create_directories(built.parent_path());
    }

protected:
    static void write(const fs::path& path, std::string_view version) {
        std::ofstream(path) << R"({"v": ")" << version << "\"}";
    }

    [[nodiscard]] std::optional<std::string> version() const {
        return InformationList::ofProgramIn(folder / "bin").entry("v");
    }

    TemporaryFolder temporary;
    const fs::path& folder = temporary.path();
    fs::path installed = folder / "share" / Names::dataFolder / "Info.json";
    fs::path built = folder / "bin" / "share" / Names::dataFolder / "Info.json";
};

TEST_F(InformationListOfAProgram, liesWhereTheProgramIsInstalledOrBuilt) {
    EXPECT_EQ(version(), std::nullopt);
    write(built, "built");
    EXPECT_EQ(version(), "built");
    write(installed, "installed");
    EXPECT_EQ(version(), "installed");
}

TEST_F(InformationListOfAProgram, isEmptyIfItCannotBeRead) {
    write(installed, "1");
    fs::resize_file(installed, 1ULL << 40U);
    EXPECT_EQ(version(), std::nullopt);
    fs::remove(installed);
    fs::create_directory(installed);
    EXPECT_EQ(version(), std::nullopt);
    fs::remove(installed);
    ASSERT_EQ(mkfifo(installed.c_str(), S_IRWXU), 0);
    EXPECT_EQ(version(), std::nullopt);
}

} // namespace

} // namespace pallistrom
