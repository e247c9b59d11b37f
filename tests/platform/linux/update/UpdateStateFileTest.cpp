// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/UpdateStateFile.h"

#include "RecordedLog.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <fstream>
#include <string>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class StateFolder : public testing::Test {
protected:
    StateFolder() { RecordedLog::take(); }

    void put(const std::string& text) const {
        fs::create_directories(path());
        std::ofstream(path() / "updates.ini", std::ios::binary) << text;
    }

    [[nodiscard]] fs::path path() const { return m_folder.path() / "state" / "pallistrom"; }

    [[nodiscard]] UpdateState load() const { return UpdateStateFile(path()).load(); }

private:
    TemporaryFolder m_folder;
};

TEST_F(StateFolder, isNotMadeByReading) {
    EXPECT_EQ(load(), UpdateState());
    EXPECT_FALSE(fs::exists(path()));
    EXPECT_THAT(RecordedLog::take(), IsEmpty());
}

TEST_F(StateFolder, keepsTheState) {
    const UpdateState state{.lastCheck = 5, .newestVersion = "1"};
    UpdateStateFile file(path());
    file.save({.skippedVersion = "3"});
    file.save(state);
    EXPECT_EQ(load(), state);
    EXPECT_EQ(std::distance(fs::directory_iterator(path()), {}), 1);
}

TEST_F(StateFolder, putsADamagedFileAside) {
    put("last-check=5\nnonsense\n");
    EXPECT_EQ(load(), UpdateState());
    EXPECT_THAT(RecordedLog::take(), ElementsAre(HasSubstr("updates.ini.damaged")));
    EXPECT_TRUE(fs::exists(path() / "updates.ini.damaged"));
    EXPECT_EQ(load(), UpdateState());
    EXPECT_THAT(RecordedLog::take(), IsEmpty());
}

TEST_F(StateFolder, doesNotWaitForWhatIsNoFile) {
    fs::create_directories(path());
    ASSERT_EQ(mkfifo((path() / "updates.ini").c_str(), 0600), 0);
    EXPECT_EQ(load(), UpdateState());
    EXPECT_THAT(RecordedLog::take(), ElementsAre(HasSubstr("damaged")));
}

TEST_F(StateFolder, isSaidOnceToBeInTrouble) {
    fs::create_directories(path().parent_path());
    std::ofstream(path()) << "in the way";
    UpdateStateFile file(path());
    file.save({});
    EXPECT_THAT(RecordedLog::take(), ElementsAre(HasSubstr("cannot be saved")));
    file.save({});
    EXPECT_THAT(RecordedLog::take(), IsEmpty());
    fs::remove(path());
    file.save({});
    fs::remove_all(path());
    std::ofstream(path()) << "in the way again";
    file.save({});
    EXPECT_THAT(RecordedLog::take(), ElementsAre(HasSubstr("cannot be saved")));
}

} // namespace

} // namespace pallistrom
