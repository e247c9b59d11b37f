// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/SettingsFile.h"

#include "InChildProcess.h"
#include "RecordedLog.h"
#include "SettingsFolder.h"

#include <QLockFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using SettingsText::Values;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// How QString shows itself in a failure.
std::string plain(const QString& text) {
    return text.toStdString();
}

ino_t inodeOf(const fs::path& path) {
    struct stat file {};

    EXPECT_EQ(stat(path.c_str(), &file), 0);
    return file.st_ino;
}

class SettingsFileTest : public testing::Test {
protected:
    SettingsFileTest() { RecordedLog::take(); }

    // Returns whether nothing stood in the way.
    bool writes(const Values& changes) const {
        const QString problem = file.write(changes);
        EXPECT_EQ(plain(problem), "");
        return problem.isEmpty();
    }

    SettingsFolder folder;
    SettingsFile file{folder.name()};
};

// --- Undisturbed.

TEST_F(SettingsFileTest, saysNothingWhileItIsMissing) {
    EXPECT_THAT(file.read().values, IsEmpty());
    EXPECT_FALSE(file.read().isDamaged);
    EXPECT_FALSE(fs::exists(folder.path()));
}

TEST_F(SettingsFileTest, isMadeWithItsFolderByTheFirstWrite) {
    ASSERT_TRUE(writes({{"a", true}}));
    EXPECT_EQ(file.read().values, (Values{{"a", true}}));
    EXPECT_EQ(folder.text(), "[General]\na=true\n");
}

TEST_F(SettingsFileTest, isReplacedAsAWholeAndLeavesNothingElseBehind) {
    folder.put("[General]\na=true\n");
    std::ifstream reader(folder.file());
    const ino_t before = inodeOf(folder.file());
    ASSERT_TRUE(writes({{"a", false}}));
    EXPECT_NE(inodeOf(folder.file()), before);
    EXPECT_THAT(folder.names(), ElementsAre("settings.ini"));
    // Who reads meanwhile has all of the old text.
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "[General]\na=true\n");
    EXPECT_EQ(folder.text(), "[General]\na=false\n");
}

TEST_F(SettingsFileTest, keepsPeoplesOwnLines) {
    folder.put("# mine\n[General]\n\nother = yes\na=true\n");
    ASSERT_TRUE(writes({{"a", false}}));
    EXPECT_EQ(folder.text(), "# mine\n[General]\n\nother = yes\na=false\n");
    EXPECT_THAT(RecordedLog::take(), IsEmpty());
}

TEST_F(SettingsFileTest, keepsItsMode) {
    folder.put("");
    fs::permissions(folder.file(), fs::perms::owner_read | fs::perms::owner_write);
    ASSERT_TRUE(writes({{"a", true}}));
    EXPECT_EQ(fs::status(folder.file()).permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(SettingsFileTest, mayLieElsewhereBehindALink) {
    folder.make();
    const fs::path elsewhere = folder.path().parent_path() / "elsewhere.ini";
    fs::create_symlink(elsewhere, folder.file());
    ASSERT_TRUE(writes({{"a", true}}));
    ASSERT_TRUE(writes({{"b", true}}));
    EXPECT_TRUE(fs::is_symlink(folder.file()));
    EXPECT_TRUE(fs::is_regular_file(elsewhere));
    EXPECT_EQ(file.read().values, (Values{{"a", true}, {"b", true}}));
}

// --- Other writers.

TEST_F(SettingsFileTest, keepsWhatAnotherWriterHasChanged) {
    const SettingsFile another(folder.name());
    ASSERT_TRUE(writes({{"a", true}}));
    EXPECT_EQ(plain(another.write({{"b", true}})), "");
    ASSERT_TRUE(writes({{"a", false}}));
    EXPECT_EQ(file.read().values, (Values{{"a", false}, {"b", true}}));
}

TEST_F(SettingsFileTest, losesNothingOfTwoProcessesThatWriteAtTheSameTime) {
    constexpr int writes = 50;
    const auto writeAll = [this](const std::string& prefix) {
        for (int i = 0; i < writes; ++i) {
            // The other one may have been in the way.
            while (!file.write({{prefix + std::to_string(i), true}}).isEmpty()) {
            }
        }
    };
    ChildProcess other = InChildProcess::start([&] { writeAll("other."); });
    writeAll("one.");
    InChildProcess::wait(other);
    EXPECT_EQ(file.read().values.size(), 2U * writes);
    EXPECT_FALSE(file.read().isDamaged);
    EXPECT_THAT(folder.names(), ElementsAre("settings.ini"));
    EXPECT_THAT(RecordedLog::take(), IsEmpty());
}

TEST_F(SettingsFileTest, doesNotWaitLongForAnotherWriter) {
    folder.put("a=true\n");
    QLockFile lock(file.path() + QStringLiteral(".lock"));
    ASSERT_TRUE(lock.lock());
    const auto start = std::chrono::steady_clock::now();
    EXPECT_THAT(plain(file.write({{"a", false}})), HasSubstr("in use"));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    EXPECT_EQ(folder.text(), "a=true\n");
    lock.unlock();
    EXPECT_TRUE(writes({{"a", false}}));
}

TEST_F(SettingsFileTest, isNotHeldUpByAWriterThatDied) {
    folder.make();
    InChildProcess::run([this] {
        // Never unlocked: the process ends without a goodbye.
        auto* const lock = new QLockFile(file.path() + QStringLiteral(".lock"));
        ASSERT_TRUE(lock->lock());
    });
    ASSERT_THAT(folder.names(), ElementsAre("settings.ini.lock"));
    ASSERT_TRUE(writes({{"a", true}}));
    EXPECT_THAT(folder.names(), ElementsAre("settings.ini"));
}

// --- Damage.

struct Damage {
    std::string name;
    std::string text;
    Values readable;
};

void PrintTo(const Damage& damage, std::ostream* out) {
    *out << damage.name;
}

class DamagedSettingsFile : public SettingsFileTest, public testing::WithParamInterface<Damage> {};

TEST_P(DamagedSettingsFile, isKeptUnderAnotherNameBeforeItIsWritten) {
    folder.put(GetParam().text);
    EXPECT_TRUE(file.read().isDamaged);
    EXPECT_EQ(file.read().values, GetParam().readable);
    EXPECT_THAT(folder.names(), ElementsAre("settings.ini"));

    ASSERT_TRUE(writes({{"new", true}}));
    EXPECT_THAT(folder.names(), ElementsAre("settings.ini", "settings.ini.damaged"));
    EXPECT_EQ(folder.text("settings.ini.damaged"), GetParam().text);
    EXPECT_THAT(RecordedLog::take(),
                ElementsAre("Pallistrom: the settings file was damaged; it is kept as " +
                            folder.file().string() + ".damaged"));

    Values expected = GetParam().readable;
    expected.insert({"new", true});
    EXPECT_EQ(file.read().values, expected);
    EXPECT_FALSE(file.read().isDamaged);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    DamagedSettingsFile,
    testing::Values(
        Damage{"garbage", "what is this?\n", {}},
        Damage{"truncated", "[General]\na=true\nb=false\nshortcut.c", {{"a", true}, {"b", false}}},
        Damage{"truncatedInAValue", "[General]\na=true\nb=fal", {{"a", true}}},
        Damage{"binary", "\x7F"s + "ELF\0\1\2\3\xFF\xFE\n\0\0"s, {}},
        Damage{"nulls", std::string(4096, '\0'), {}},
        Damage{"garbageInBetween", "a=true\n<<<<<<<\nb=true\n", {{"a", true}, {"b", true}}},
        Damage{"tooLarge", "a=true\n" + std::string(65536, '#'), {}}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(SettingsFileTest, isAFreshStartWhenItIsEmpty) {
    folder.put("");
    EXPECT_FALSE(file.read().isDamaged);
    ASSERT_TRUE(writes({{"a", true}}));
    EXPECT_THAT(folder.names(), ElementsAre("settings.ini"));
}

TEST_F(SettingsFileTest, isReadUpTo64KiB) {
    folder.put("a=true\n" + std::string(65536 - 7, '#'));
    EXPECT_FALSE(file.read().isDamaged);
    EXPECT_EQ(file.read().values, (Values{{"a", true}}));
}

TEST_F(SettingsFileTest, doesNotGrowBeyondWhatIsRead) {
    const std::string text = "[General]\n" + std::string(65536 - 10, '#');
    folder.put(text);
    EXPECT_THAT(plain(file.write({{"a", true}})), HasSubstr("too long"));
    EXPECT_EQ(folder.text(), text);
    EXPECT_THAT(folder.names(), ElementsAre("settings.ini"));
}

TEST_F(SettingsFileTest, isKeptUnderYetAnotherNameWhenItIsDamagedAgain) {
    for (const std::string& damage : {"first"s, "second"s, "third"s}) {
        folder.put(damage);
        ASSERT_TRUE(writes({{"a", true}}));
    }
    EXPECT_EQ(folder.text("settings.ini.damaged"), "first");
    EXPECT_EQ(folder.text("settings.ini.damaged-2"), "second");
    EXPECT_EQ(folder.text("settings.ini.damaged-3"), "third");
    EXPECT_EQ(folder.names().size(), 4U);
}

// --- What is no file.

TEST_F(SettingsFileTest, movesAFolderInItsPlaceAside) {
    fs::create_directories(folder.file() / "inside");
    EXPECT_TRUE(file.read().isDamaged);
    ASSERT_TRUE(writes({{"a", true}}));
    EXPECT_TRUE(fs::is_directory(folder.path() / "settings.ini.damaged" / "inside"));
    EXPECT_EQ(file.read().values, (Values{{"a", true}}));
}

TEST_F(SettingsFileTest, movesAPipeInItsPlaceAsideAndNeverWaitsForIt) {
    folder.make();
    ASSERT_EQ(mkfifo(folder.file().c_str(), 0600), 0);
    EXPECT_TRUE(file.read().isDamaged);
    ASSERT_TRUE(writes({{"a", true}}));
    EXPECT_TRUE(fs::is_fifo(folder.path() / "settings.ini.damaged"));
    EXPECT_EQ(file.read().values, (Values{{"a", true}}));
}

TEST_F(SettingsFileTest, cannotBeWrittenWhileAFileIsInThePlaceOfItsFolder) {
    fs::create_directories(folder.path().parent_path());
    std::ofstream(folder.path()) << "not a folder";
    EXPECT_THAT(file.read().values, IsEmpty());
    EXPECT_THAT(plain(file.write({{"a", true}})), HasSubstr("cannot be made"));
    EXPECT_TRUE(fs::is_regular_file(folder.path()));
}

// --- Without the right to it. Each test runs in a child process that is not the superuser.

class ForbiddenSettingsFile : public SettingsFileTest {
protected:
    static constexpr fs::perms nothing = fs::perms::none;
    static constexpr fs::perms readOnlyFile = fs::perms::owner_read;
    static constexpr fs::perms readOnlyFolder = fs::perms::owner_read | fs::perms::owner_exec;
};

TEST_F(ForbiddenSettingsFile, isKeptUnderAnotherNameIfItCannotBeRead) {
    folder.put("a=true\n");
    fs::permissions(folder.file(), nothing);
    folder.runAsNobody([this] {
        EXPECT_TRUE(file.read().isDamaged);
        ASSERT_TRUE(writes({{"b", true}}));
        EXPECT_EQ(file.read().values, (Values{{"b", true}}));
    });
    if (IsSkipped()) {
        return;
    }
    fs::permissions(folder.path() / "settings.ini.damaged", fs::perms::owner_read);
    EXPECT_EQ(folder.text("settings.ini.damaged"), "a=true\n");
}

TEST_F(ForbiddenSettingsFile, staysAsItIsIfItIsReadOnly) {
    folder.put("a=true\n");
    fs::permissions(folder.file(), readOnlyFile);
    folder.runAsNobody([this] {
        EXPECT_NE(plain(file.write({{"a", false}})), "");
        EXPECT_EQ(file.read().values, (Values{{"a", true}}));
        EXPECT_THAT(folder.names(), ElementsAre("settings.ini"));
    });
}

TEST_F(ForbiddenSettingsFile, isNotCopiedAgainAndAgainIfItIsDamagedAndReadOnly) {
    folder.put("damaged\na=true\n");
    fs::permissions(folder.file(), readOnlyFile);
    folder.runAsNobody([this] {
        EXPECT_NE(plain(file.write({{"b", true}})), "");
        EXPECT_NE(plain(file.write({{"b", true}})), "");
        EXPECT_THAT(folder.names(), ElementsAre("settings.ini"));
        EXPECT_EQ(folder.text(), "damaged\na=true\n");
        EXPECT_THAT(RecordedLog::take(), IsEmpty());
    });
}

TEST_F(ForbiddenSettingsFile, staysAsItIsIfItsFolderIsReadOnly) {
    folder.put("a=true\n");
    fs::permissions(folder.path(), readOnlyFolder);
    folder.runAsNobody([this] {
        EXPECT_THAT(plain(file.write({{"a", false}})), HasSubstr("cannot be written"));
        EXPECT_EQ(file.read().values, (Values{{"a", true}}));
        EXPECT_THAT(folder.names(), ElementsAre("settings.ini"));
    });
}

TEST_F(ForbiddenSettingsFile, saysNothingIfItsFolderCannotBeOpened) {
    folder.put("a=true\n");
    fs::permissions(folder.path(), nothing);
    folder.runAsNobody([this] {
        EXPECT_THAT(file.read().values, IsEmpty());
        EXPECT_NE(plain(file.write({{"a", false}})), "");
    });
    fs::permissions(folder.path(), fs::perms::owner_all);
    EXPECT_EQ(folder.text(), "a=true\n");
}

} // namespace

} // namespace pallistrom
