// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/InstallEvidence.h"

#include "Environment.h"
#include "InChildProcess.h"
#include "TemporaryFolder.h"
#include "platform/linux/update/install/PackedFiles.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <ostream>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;
using enum InstallKind;

struct Row {
    const char* name;
    const char* program;
    bool isInSandbox;
    bool hasMarker;
    bool isOurs;
    InstallKind kind;
    bool isAlone = true;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.name;
}

class InstallKindTest : public testing::TestWithParam<Row> {};

TEST_P(InstallKindTest, isDecidedByEvidence) {
    const Row& row = GetParam();
    const InstallEvidence evidence{.program = row.program,
                                   .isInSandbox = row.isInSandbox,
                                   .hasMarker = row.hasMarker,
                                   .isAlone = row.isAlone,
                                   .isOurs = row.isOurs};
    EXPECT_EQ(evidence.kind(), row.kind);
}

constexpr const char* home = "/home/ann/apps/pallistrom-1.0-linux-x86_64/bin/pallistrom";

// clang-format off
constexpr std::array rows{
    //  name                     program                          sandbox marker ours   kind
    Row{"distribution",          "/usr/bin/pallistrom",           false, false, false, Package},
    Row{"asSuperuser",           "/usr/bin/pallistrom",           false, false, true,  Package},
    Row{"markerBelowUsr",        "/usr/bin/pallistrom",           false, true,  true,  Package},
    Row{"libexec",               "/usr/libexec/x/pallistrom",     false, false, false, Package},
    Row{"vendor",                "/opt/pallistrom/bin/pallistrom", false, false, false, Package},
    Row{"archiveOfAdmin",        "/opt/pallistrom/bin/pallistrom", false, true, false, Elsewhere},
    Row{"neverBelowOpt",         "/opt/pallistrom/bin/pallistrom", false, true, true,  Elsewhere},
    Row{"store",                 "/nix/store/abc/bin/pallistrom", false, false, false, Package},
    Row{"madeByHand",            "/usr/local/bin/pallistrom",     false, false, false, Elsewhere},
    Row{"neverBelowUsrLocal",    "/usr/local/bin/pallistrom",     false, true,  true,  Elsewhere},
    Row{"archive",               home,                            false, true,  true,  ReplaceItself},
    Row{"archiveOfOthers",       home,                            false, true,  false, Elsewhere},
    Row{"archiveAmongOthers",    "/home/ann/.local/bin/pallistrom", false, true, true, Elsewhere, false},
    Row{"buildTree",             "/home/ann/build/pallistrom",    false, false, true,  Elsewhere},
    Row{"placeOfOthers",         "/srv/tools/bin/pallistrom",     false, false, false, Package},
    Row{"notQuiteUsr",           "/usrlocal/bin/pallistrom",      false, true,  true,  ReplaceItself},
    Row{"flatpak",               "/app/bin/pallistrom",           true,  false, false, Elsewhere},
    Row{"sandboxBeatsMarker",    home,                            true,  true,  true,  Elsewhere},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(InstallKind,
                         InstallKindTest,
                         testing::ValuesIn(rows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(InstallEvidence, findsTheFolderOfAnArchive) {
    EXPECT_EQ(InstallEvidence{.program = home}.topFolder(),
              "/home/ann/apps/pallistrom-1.0-linux-x86_64");
    for (const char* const other : {"/bin/pallistrom",
                                    "/home/ann/build/pallistrom",
                                    "/home/ann/bin/other",
                                    "bin/pallistrom",
                                    "a/bin/pallistrom",
                                    ""}) {
        EXPECT_EQ(InstallEvidence{.program = other}.topFolder(), "") << other;
    }
}

class InstallEvidenceOnDisk : public testing::Test {
protected:
    InstallEvidenceOnDisk() {
        fs::create_directories(top / "bin");
        fs::create_directories(PackedFiles::listIn(top).parent_path());
        std::ofstream(PackedFiles::listIn(top)) << "share/pallistrom/relocatable\n";
    }

    [[nodiscard]] InstallKind kind() const {
        return InstallEvidence::ofProgram(top / "bin" / "pallistrom").kind();
    }

    TemporaryFolder folder;
    fs::path top = folder.path() / "pallistrom-1.0-linux-x86_64";
};

TEST_F(InstallEvidenceOnDisk, knowsOurArchiveByItsMarker) {
    EXPECT_EQ(kind(), ReplaceItself);
    fs::remove(PackedFiles::listIn(top));
    EXPECT_EQ(kind(), Elsewhere);
}

TEST_F(InstallEvidenceOnDisk, replacesNoFolderThatItSharesWithOthers) {
    std::ofstream(top / "bin" / "other") << "theirs";
    EXPECT_EQ(kind(), Elsewhere);
}

TEST_F(InstallEvidenceOnDisk, replacesNothingThatIsNotOurs) {
    InChildProcess::giveToNobody(folder.path());
    fs::permissions(top, fs::perms::owner_read | fs::perms::owner_exec);
    InChildProcess::runAsNobody([this] { EXPECT_EQ(kind(), Elsewhere); });
    fs::permissions(top, fs::perms::owner_all);
    fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
    InChildProcess::runAsNobody([this] { EXPECT_EQ(kind(), Elsewhere); });
    fs::permissions(folder.path(), fs::perms::owner_all);
    InChildProcess::runAsNobody([this] { EXPECT_EQ(kind(), ReplaceItself); });
}

TEST_F(InstallEvidenceOnDisk, leavesSnapsAndAppImagesAlone) {
    InChildProcess::run([this] {
        Environment::set("SNAP", folder.path().string());
        EXPECT_EQ(kind(), Elsewhere);
        Environment::set("SNAP", "/snap/other");
        EXPECT_EQ(kind(), ReplaceItself) << "started from another one";
        Environment::set("APPIMAGE", "/home/ann/Pallistrom.AppImage");
        Environment::set("APPDIR", top.string());
        EXPECT_EQ(kind(), Elsewhere);
    });
}

} // namespace

} // namespace pallistrom
