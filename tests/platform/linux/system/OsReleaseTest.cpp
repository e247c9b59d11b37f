// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/system/OsRelease.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;

std::string numbersOf(std::string_view versionId) {
    OsRelease release;
    release.versionId = versionId;
    const auto version = release.versionNumbers();
    std::ostringstream text;
    text << version.majorVersion << '.' << version.minorVersion << '.' << version.patchVersion;
    return text.str();
}

TEST(OsRelease, saysNameAndVersion) {
    const auto release = OsRelease::parse("PRETTY_NAME=\"Debian GNU/Linux 12 (bookworm)\"\n"
                                          "NAME=\"Debian GNU/Linux\"\n"
                                          "VERSION_ID=\"12\"\n"
                                          "VERSION=\"12 (bookworm)\"\n");
    EXPECT_EQ(release.name, "Debian GNU/Linux");
    EXPECT_EQ(release.versionId, "12");
}

TEST(OsRelease, saysWhatItWasMadeFrom) {
    const std::vector<std::string> mint{"linuxmint", "ubuntu", "debian"};
    EXPECT_EQ(OsRelease::parse("ID_LIKE=\"ubuntu  debian\"\nID=linuxmint\n").families, mint);
    EXPECT_TRUE(OsRelease::parse("NAME=Other\n").families.empty());
}

TEST(OsRelease, isReadAsAShellReadsIt) {
    const auto nameIn = [](std::string_view text) {
        return OsRelease::parse(text).name;
    };
    EXPECT_EQ(nameIn("NAME=Fedora"), "Fedora");
    EXPECT_EQ(nameIn("NAME='A \"B\" \\C'\r\n"), "A \"B\" \\C");
    EXPECT_EQ(nameIn("NAME=\"A \\\"B\\\" \\$C \\\\ \\`\"\n"), "A \"B\" $C \\ `");
    EXPECT_EQ(nameIn("NAME=old\nNAME=new\n"), "new");
    EXPECT_EQ(nameIn("# NAME=x\n#NAME=x\nNAME = x\nMYNAME=x\n"), "Linux");
}

TEST(OsRelease, isPlainLinuxWithoutAName) {
    for (const std::string_view text : {"", "NAME=\n", "NAME=\"\"", "NAME=\"open\n", "NAME", "="}) {
        EXPECT_EQ(OsRelease::parse(text).name, "Linux") << text;
    }
    EXPECT_EQ(OsRelease::parse(std::string_view("\0\xff=\n", 4)).name, "Linux");
}

TEST(OsRelease, hasAVersionOfThreeNumbers) {
    EXPECT_EQ(numbersOf("12"), "12.0.0");
    EXPECT_EQ(numbersOf("24.04"), "24.4.0");
    EXPECT_EQ(numbersOf("3.19.1"), "3.19.1");
    EXPECT_EQ(numbersOf("1.2.3.4"), "1.2.3");
    EXPECT_EQ(numbersOf("20240101"), "20240101.0.0");
    EXPECT_EQ(numbersOf("23.11-beta.7"), "23.11.0");
}

TEST(OsRelease, hasZerosForWhatIsNoNumber) {
    for (const std::string_view text :
         {"", "rolling", ".1", "-1.2", "+1", " 1", "99999999999999999999.1"}) {
        EXPECT_EQ(numbersOf(text), "0.0.0") << text;
    }
    EXPECT_EQ(numbersOf("1..2"), "1.0.0");
    EXPECT_EQ(numbersOf("1."), "1.0.0");
}

TEST(OsRelease, isTheFirstFileThatIsThere) {
    const TemporaryFolder temporary;
    const fs::path& folder = temporary.path();
    const auto read = [&] {
        return OsRelease::read({folder / "first", folder / "second"}).name;
    };
    EXPECT_EQ(read(), "Linux");
    std::ofstream(folder / "second") << "NAME=second\n";
    EXPECT_EQ(read(), "second");
    std::ofstream(folder / "first") << "NAME=first\n";
    EXPECT_EQ(read(), "first");
}

} // namespace

} // namespace pallistrom
