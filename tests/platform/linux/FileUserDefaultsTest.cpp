// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/FileUserDefaults.h"

#include "FileUserDefaultsFixture.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class FileUserDefaultsTest : public FileUserDefaultsFixture {
protected:
    // Changes the file again and again, the way that `change` does it.
    void seeEachChange(void (SettingsFolder::*change)(std::string_view) const) {
        folder.put("a=false\n");
        start();
        for (const bool value : {true, false, true, false}) {
            tells = 0;
            (folder.*change)(value ? "a=true\n" : "a=false\n");
            ASSERT_TRUE(comesToSee(value, "a"));
            ASSERT_GE(tells, 1);
        }
    }
};

// --- The two layers.

TEST_F(FileUserDefaultsTest, readFalseUntilSomebodySaysOtherwise) {
    EXPECT_FALSE(start().boolForKey("a"));
}

TEST_F(FileUserDefaultsTest, readWhatIsRegisteredUntilSomethingIsStored) {
    FileUserDefaults& defaults = start();
    defaults.registerDefaults({{"a", true}, {"b", true}});
    EXPECT_TRUE(defaults.boolForKey("a"));
    defaults.setBoolForKey(false, "a");
    EXPECT_FALSE(defaults.boolForKey("a"));
    EXPECT_TRUE(defaults.boolForKey("b"));
}

TEST_F(FileUserDefaultsTest, readWhatIsStoredWhateverIsRegisteredLater) {
    FileUserDefaults& defaults = start();
    defaults.setBoolForKey(false, "a");
    defaults.registerDefaults({{"a", true}});
    EXPECT_FALSE(defaults.boolForKey("a"));
}

TEST_F(FileUserDefaultsTest, mergeWhatIsRegisteredSeveralTimes) {
    FileUserDefaults& defaults = start();
    defaults.registerDefaults({{"a", true}, {"b", true}});
    defaults.registerDefaults({{"a", false}, {"c", true}});
    EXPECT_FALSE(defaults.boolForKey("a"));
    EXPECT_TRUE(defaults.boolForKey("b"));
    EXPECT_TRUE(defaults.boolForKey("c"));
}

TEST_F(FileUserDefaultsTest, tellKeysApartByAllOfTheirCharacters) {
    FileUserDefaults& defaults = start();
    defaults.setBoolForKey(true, "shortcut..enabled");
    EXPECT_TRUE(defaults.boolForKey("shortcut..enabled"));
    EXPECT_FALSE(defaults.boolForKey("shortcut.enabled"));
    EXPECT_FALSE(defaults.boolForKey("Shortcut..enabled"));
    EXPECT_FALSE(defaults.boolForKey(""));
}

TEST_F(FileUserDefaultsTest, surviveARestart) {
    start().setBoolForKey(true, "a");
    start().setBoolForKey(false, "b\n=\xE2\x88\x82");
    FileUserDefaults& defaults = start();
    defaults.registerDefaults({{"b\n=\xE2\x88\x82", true}});
    EXPECT_TRUE(defaults.boolForKey("a"));
    EXPECT_FALSE(defaults.boolForKey("b\n=\xE2\x88\x82"));
}

TEST_F(FileUserDefaultsTest, forgetWhatWasRegisteredAtARestart) {
    start().registerDefaults({{"a", true}});
    EXPECT_FALSE(start().boolForKey("a"));
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST_F(FileUserDefaultsTest, storeOnlyWhatWasSet) {
    FileUserDefaults& defaults = start();
    defaults.registerDefaults({{"a", true}, {"b", true}});
    defaults.setBoolForKey(true, "a");
    EXPECT_EQ(folder.text(), "[General]\na=true\n");
}

// --- Who is told.

TEST_F(FileUserDefaultsTest, tellOfTheirOwnChangesOnce) {
    FileUserDefaults& defaults = start();
    defaults.setBoolForKey(true, "a");
    EXPECT_EQ(tells, 1);
    loop.drain();
    EXPECT_EQ(tells, 1);
}

TEST_F(FileUserDefaultsTest, tellWhenDefaultsAreRegistered) {
    start().registerDefaults({{"a", true}});
    EXPECT_EQ(tells, 1);
}

TEST_F(FileUserDefaultsTest, tellNobodyWhenAFileChangesThatIsNotTheirs) {
    start();
    std::ofstream(folder.path() / "another.ini") << "a=true\n";
    folder.put("# a remark\n");
    loop.drain();
    EXPECT_EQ(tells, 0);
}

// --- Other programs.

TEST_F(FileUserDefaultsTest, seeAFileThatAppears) {
    FileUserDefaults& defaults = start();
    folder.replace("a=true\n");
    EXPECT_TRUE(comesToSee(true, "a"));
    EXPECT_GE(tells, 1);
    EXPECT_FALSE(defaults.boolForKey("b"));
}

TEST_F(FileUserDefaultsTest, seeAFileThatIsWrittenFromNothing) {
    start();
    folder.put("a=true\n");
    EXPECT_TRUE(comesToSee(true, "a"));
    EXPECT_GE(tells, 1);
}

TEST_F(FileUserDefaultsTest, seeEachTimeThatTheFileIsReplaced) {
    seeEachChange(&SettingsFolder::replace);
}

TEST_F(FileUserDefaultsTest, seeEachTimeThatTheFileIsChangedInPlace) {
    seeEachChange(&SettingsFolder::put);
}

TEST_F(FileUserDefaultsTest, seeTheFileChangedInPlaceAfterItWasReplaced) {
    folder.put("a=false\n");
    start();
    // Somebody who has the old file open keeps it from vanishing.
    const std::ifstream reader(folder.file());
    folder.replace("a=true\n");
    ASSERT_TRUE(comesToSee(true, "a"));
    folder.put("a=false\n");
    ASSERT_TRUE(comesToSee(false, "a"));
}

TEST_F(FileUserDefaultsTest, seeTheFileChangedInPlaceAfterTheyWroteIt) {
    start().setBoolForKey(true, "a");
    folder.put("a=false\n");
    EXPECT_TRUE(comesToSee(false, "a"));
}

TEST_F(FileUserDefaultsTest, seeTheFileChangedBehindALink) {
    const fs::path elsewhere = folder.path().parent_path() / "elsewhere.ini";
    folder.put("a=false\n");
    fs::rename(folder.file(), elsewhere);
    fs::create_symlink(elsewhere, folder.file());
    start();
    std::ofstream(elsewhere) << "a=true\n";
    EXPECT_TRUE(comesToSee(true, "a"));
}

TEST_F(FileUserDefaultsTest, readWhatIsRegisteredOnceTheFileIsGone) {
    folder.put("a=false\n");
    start().registerDefaults({{"a", true}});
    fs::remove(folder.file());
    EXPECT_TRUE(comesToSee(true, "a"));
    EXPECT_THAT(RecordedLog::take(), IsEmpty());
}

TEST_F(FileUserDefaultsTest, goOnAfterTheirFolderHasGone) {
    FileUserDefaults& defaults = start();
    fs::remove_all(folder.path());
    loop.drain();
    defaults.setBoolForKey(true, "a");
    EXPECT_EQ(folder.text(), "[General]\na=true\n");
    folder.replace("a=false\n");
    EXPECT_TRUE(comesToSee(false, "a"));
}

TEST_F(FileUserDefaultsTest, doNotUndoWhatAnotherProgramHasStored) {
    FileUserDefaults& one = start();
    FileUserDefaults another(folder.name());
    one.setBoolForKey(true, "a");
    another.setBoolForKey(true, "b");
    one.setBoolForKey(true, "c");
    EXPECT_EQ(folder.text(), "[General]\na=true\nb=true\nc=true\n");
    EXPECT_TRUE(comesToSee(true, "b"));
    EXPECT_TRUE(loop.runUntil([&] { return another.boolForKey("a") && another.boolForKey("c"); }));
}

// --- Damage.

TEST_F(FileUserDefaultsTest, readWhatIsLeftOfADamagedFileAndSaySoOnce) {
    folder.put("a=true\nshortcut.b");
    FileUserDefaults& defaults = start();
    EXPECT_TRUE(defaults.boolForKey("a"));
    EXPECT_THAT(
        RecordedLog::take(),
        ElementsAre("Pallistrom: the settings file is damaged; what can be read of it counts"));
    folder.put("a=false\nshortcut.b");
    EXPECT_TRUE(comesToSee(false, "a"));
    EXPECT_THAT(RecordedLog::take(), IsEmpty());
}

TEST_F(FileUserDefaultsTest, mendADamagedFileWithTheNextWrite) {
    folder.put("a=true\nshortcut.b");
    start().setBoolForKey(true, "c");
    EXPECT_EQ(folder.text("settings.ini.damaged"), "a=true\nshortcut.b");
    FileUserDefaults& defaults = start();
    EXPECT_TRUE(defaults.boolForKey("a"));
    EXPECT_TRUE(defaults.boolForKey("c"));
    EXPECT_THAT(RecordedLog::take(),
                ElementsAre(HasSubstr("is damaged"), HasSubstr("settings.ini.damaged")));
}

TEST_F(FileUserDefaultsTest, sayEachTimeThatTheFileIsDamagedAnew) {
    FileUserDefaults& defaults = start();
    for (int i = 0; i < 2; ++i) {
        folder.put("damaged");
        loop.drain();
        EXPECT_THAT(RecordedLog::take(), ElementsAre(HasSubstr("is damaged")));
        defaults.setBoolForKey(true, "a");
        loop.drain();
        EXPECT_THAT(RecordedLog::take(), ElementsAre(HasSubstr("it is kept as")));
    }
}

} // namespace

} // namespace pallistrom
