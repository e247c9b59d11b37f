// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/ArchiveInstallation.h"

#include "ChildProcess.h"
#include "Deadline.h"
#include "EventLoop.h"
#include "InChildProcess.h"
#include "ProgramTree.h"
#include "TemporaryFolder.h"
#include "TinyDisk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// A program of version 1.0 in a folder of its own, and nothing beside it.
class ArchiveInstallationTest : public testing::Test {
protected:
    ArchiveInstallationTest() {
        fs::create_directory(apps);
        ProgramTree::write(old, top);
    }

    /// Installs the archive. Returns what stood in the way.
    std::string install(const std::string& version = "2.0") {
        EventLoop loop;
        std::optional<std::string> result;
        const ArchiveInstallation installation(
            {.archive = archive, .topFolder = top, .running = "/proc/self/exe", .version = version},
            [&](const std::string& problem) { result = problem; });
        EXPECT_FALSE(result) << "told before anybody listens";
        EXPECT_TRUE(loop.runUntil([&] { return result.has_value(); }));
        return result.value_or("nothing was told");
    }

    /// Waits until nothing lies beside the program any more.
    [[nodiscard]] bool isTidy() const {
        return waitUntil(
            [this] {
                return std::distance(fs::directory_iterator(apps), fs::directory_iterator()) == 1;
            },
            Deadline(std::chrono::seconds(60)));
    }

    void expectNothingChanged() const {
        EXPECT_EQ(ProgramTree::read(top), old);
        EXPECT_TRUE(isTidy());
    }

    void pack(const TarMaker& maker) const {
        ProgramTree::writeFile(archive, maker.archive(), "gzip");
    }

    TemporaryFolder folder;
    fs::path apps = folder.path() / "apps";
    fs::path top = apps / "pallistrom-1.0-linux-x86_64";
    fs::path archive = folder.path() / "archive";
    ProgramTree::Tree old = ProgramTree::ofVersion("1.0");
    ProgramTree::Tree newer = ProgramTree::ofVersion("2.0");
};

TEST_F(ArchiveInstallationTest, putsTheNewVersionInThePlaceOfTheOldOne) {
    for (const char* const compressor : {"gzip", "xz"}) {
        ProgramTree::writeFile(archive, ProgramTree::packed(newer).archive(), compressor);
        EXPECT_EQ(install(), "");
        EXPECT_EQ(ProgramTree::read(top), newer);
        EXPECT_TRUE(isTidy());
        std::swap(old, newer);
        ProgramTree::writeFile(archive, ProgramTree::packed(newer).archive(), compressor);
        EXPECT_EQ(install("1.0"), "");
        std::swap(old, newer);
    }

    struct stat status {};

    ASSERT_EQ(stat((top / "bin" / "pallistrom").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0755U);
}

TEST_F(ArchiveInstallationTest, takesWhatTheSystemsOwnToolsPacked) {
    const fs::path source = folder.path() / "pallistrom-2.0-linux-x86_64";
    newer["share/" + std::string(120, 'd') + "/" + std::string(120, 'f')] =
        std::string(300'000, 'y');
    ProgramTree::write(newer, source);
    for (const char* const form : {"--format=gnu", "--format=pax", "--format=posix"}) {
        for (const char* const compression : {"--gzip", "--xz"}) {
            run({.arguments = {"tar",
                               form,
                               compression,
                               "--create",
                               "--file=" + archive.string(),
                               "--directory=" + folder.path().string(),
                               source.filename().string()},
                 .environment = {{"PATH", "/usr/bin:/bin"}}});
            fs::remove_all(top);
            ProgramTree::write(old, top);
            EXPECT_EQ(install(), "") << form << compression;
            EXPECT_EQ(ProgramTree::read(top), newer);
        }
    }
}

TEST_F(ArchiveInstallationTest, keepsWhoMayReadTheFolder) {
    fs::permissions(top, fs::perms::owner_all);
    pack(ProgramTree::packed(newer));
    EXPECT_EQ(install(), "");
    EXPECT_EQ(fs::status(top).permissions(), fs::perms::owner_all);
}

TEST_F(ArchiveInstallationTest, refusesWhatIsNoArchive) {
    for (const std::string bytes :
         {"", "x", "not packed at all", "\x1F\x8B rubbish", "\xFD\x37zXZ"}) {
        ProgramTree::writeFile(archive, bytes);
        EXPECT_THAT(install(), HasSubstr("cannot be unpacked"));
    }
    fs::remove(archive);
    EXPECT_THAT(install(), HasSubstr("cannot be unpacked"));
    expectNothingChanged();
}

TEST_F(ArchiveInstallationTest, refusesAnArchiveThatWasCutOff) {
    ProgramTree::writeFile(archive, ProgramTree::packed(newer).bytes(), "gzip");
    EXPECT_THAT(install(), HasSubstr("cannot be unpacked"));
    pack(ProgramTree::packed(newer));
    fs::resize_file(archive, fs::file_size(archive) - 1);
    EXPECT_THAT(install(), HasSubstr("cannot be unpacked"));
    expectNothingChanged();
}

TEST_F(ArchiveInstallationTest, letsNothingOutOfItsFolder) {
    const fs::path victim = folder.path() / "victim";
    std::ofstream(victim) << "whole";
    const std::string up = "pallistrom-new/../../victim";
    for (const TarMaker& hostile :
         {ProgramTree::packed(newer).file(up, "broken"),
          ProgramTree::packed(newer).file(victim.string(), "broken"),
          ProgramTree::packed(newer).file("../victim", "broken"),
          ProgramTree::packed(newer)
              .link("pallistrom-new/out", "../..")
              .file("pallistrom-new/out/victim", "broken"),
          ProgramTree::packed(newer).link("pallistrom-new/out", victim.string()),
          ProgramTree::packed(newer)
              .link("pallistrom-new/in", "share")
              .file("pallistrom-new/in/pallistrom/relocatable", "broken"),
          ProgramTree::packed(newer).add('1', "pallistrom-new/hard", "", victim.string()),
          ProgramTree::packed(newer).add('6', "pallistrom-new/pipe", ""),
          ProgramTree::packed(newer).note("path", up).file("pallistrom-new/a", "broken"),
          ProgramTree::packed(newer).file("pallistrom-new/bin/pallistrom", "twice")}) {
        pack(hostile);
        EXPECT_THAT(install(), HasSubstr("cannot be unpacked"));
        EXPECT_EQ(fs::file_size(victim), 5U);
    }
    expectNothingChanged();
}

TEST_F(ArchiveInstallationTest, givesNobodyMoreRights) {
    newer.erase("share/doc/newest");
    TarMaker maker = ProgramTree::packed(newer);
    pack(maker.file("pallistrom-new/bin/root", "x", 06777));
    EXPECT_EQ(install(), "");
    EXPECT_EQ(static_cast<unsigned>(fs::status(top / "bin" / "root").permissions()) & 07022U, 0U);
}

TEST_F(ArchiveInstallationTest, refusesMoreThanAProgramNeedsHoweverSmallItIsPacked) {
    // A header that announces more than is allowed; nothing of it has to come.
    std::string header = TarMaker().file("pallistrom-new/huge", "").bytes();
    header.replace(124, 11, "20000000000");
    ProgramTree::writeFile(archive,
                           ProgramTree::packed(newer).bytes() + TarMaker::withRightSum(header) +
                               std::string(2'000'000, '\0'),
                           "gzip");
    EXPECT_THAT(install(), HasSubstr("cannot be unpacked"));
    expectNothingChanged();
}

TEST_F(ArchiveInstallationTest, refusesWhatIsNotWhatWasOffered) {
    pack(ProgramTree::packed(ProgramTree::ofVersion("0.9")));
    EXPECT_THAT(install("2.0"), HasSubstr("another version"));
    for (const auto& [path, content] : ProgramTree::ofVersion("2.0")) {
        if (path.starts_with("share/doc")) {
            continue;
        }
        ProgramTree::Tree lacking = newer;
        lacking.erase(path);
        pack(ProgramTree::packed(lacking));
        EXPECT_NE(install(), "") << path;
    }
    ProgramTree::Tree other = newer;
    other["bin/pallistrom"][18] = static_cast<char>(other["bin/pallistrom"][18] + 1);
    pack(ProgramTree::packed(other));
    EXPECT_THAT(install(), HasSubstr("another kind of computer"));
    other["bin/pallistrom"] = "#!/bin/sh\nexit 0 and some more\n";
    pack(ProgramTree::packed(other));
    EXPECT_THAT(install(), HasSubstr("not the whole program"));
    other["bin/pallistrom"] = "-> ../share/doc/2.0";
    pack(ProgramTree::packed(other));
    EXPECT_THAT(install(), HasSubstr("not the whole program"));
    expectNothingChanged();
}

TEST_F(ArchiveInstallationTest, refusesWhatDoesNotStartHere) {
    // A whole program but for its end, and one that says no.
    std::string& file = newer["bin/pallistrom"];
    const std::string whole = file;
    file.resize(64);
    pack(ProgramTree::packed(newer));
    EXPECT_THAT(install(), HasSubstr("does not start"));
    std::ifstream other("/usr/bin/false", std::ios::binary);
    file.assign(std::istreambuf_iterator<char>(other), {});
    pack(ProgramTree::packed(newer));
    EXPECT_THAT(install(), HasSubstr("does not start"));
    expectNothingChanged();
    file = whole;
    pack(ProgramTree::packed(newer));
    EXPECT_EQ(install(), "");
}

TEST_F(ArchiveInstallationTest, leavesAFolderAloneInWhichOthersHaveFiles) {
    pack(ProgramTree::packed(newer));
    std::ofstream(top / "notes.txt") << "mine";
    EXPECT_THAT(install(), HasSubstr("Other files lie in"));
    old["notes.txt"] = "mine";
    expectNothingChanged();
}

TEST_F(ArchiveInstallationTest, losesNothingWhereNothingCanBeWritten) {
    pack(ProgramTree::packed(newer));
    InChildProcess::giveToNobody(folder.path());
    fs::permissions(apps, fs::perms::owner_read | fs::perms::owner_exec);
    InChildProcess::runAsNobody([this] { EXPECT_THAT(install(), HasSubstr("can be written")); });
    fs::permissions(apps, fs::perms::owner_all);
    expectNothingChanged();
}

TEST_F(ArchiveInstallationTest, losesNothingWhereTheDiskIsFull) {
    newer["share/large"] = std::string(50'000, 'y');
    pack(ProgramTree::packed(newer));
    for (const int pagesLeft : {0, 1, 3, 6}) {
        InChildProcess::run([&] {
            TinyDisk disk;
            if (!InChildProcess::takeOwnMounts() || !disk.mountOn(apps)) {
                GTEST_SKIP() << "no mounts of our own to put a full disk on";
            }
            ProgramTree::write(old, top);
            disk.fill(pagesLeft);
            EXPECT_THAT(install(), HasSubstr("not enough room")) << pagesLeft;
            disk.makeRoom();
            expectNothingChanged();
        });
    }
}

TEST_F(ArchiveInstallationTest, leavesNothingIfItIsGivenUp) {
    pack(ProgramTree::packed(newer));
    EventLoop loop;
    int told = 0;
    auto installation = std::make_unique<ArchiveInstallation>(
        ArchiveInstallation::Order{
            .archive = archive, .topFolder = top, .running = "/proc/self/exe", .version = "2.0"},
        [&](const std::string& /*problem*/) { ++told; });
    ASSERT_TRUE(loop.runUntil([&] {
        return std::distance(fs::directory_iterator(apps), fs::directory_iterator()) == 2;
    }));
    installation.reset();
    loop.drain();
    EXPECT_EQ(told, 0);
    expectNothingChanged();
}

} // namespace

} // namespace pallistrom
