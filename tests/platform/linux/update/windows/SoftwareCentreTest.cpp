// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/windows/SoftwareCentre.h"

#include "TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

namespace pallistrom {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view cache = "[MIME Cache]\n"
                                   "text/plain=edit.desktop;\n"
                                   "x-scheme-handler/appstream=centre.desktop;other.desktop;\n";

void write(const std::filesystem::path& file, std::string_view text) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file) << text;
}

TEST(SoftwareCentre, isWhateverOpensTheAddressesOfAppStream) {
    EXPECT_THAT(SoftwareCentre::entriesIn(cache), ElementsAre("centre.desktop", "other.desktop"));
    EXPECT_THAT(SoftwareCentre::entriesIn("[MIME Cache]\ntext/plain=edit.desktop;\n"), IsEmpty());
    EXPECT_THAT(SoftwareCentre::entriesIn(""), IsEmpty());
}

TEST(SoftwareCentre, isThereIfItsEntryIs) {
    const TemporaryFolder system;
    const TemporaryFolder user;
    const std::vector folders{user.path(), system.path()};
    EXPECT_FALSE(SoftwareCentre::exists(folders));
    write(system.path() / "applications" / "mimeinfo.cache", cache);
    EXPECT_FALSE(SoftwareCentre::exists(folders)) << "the cache names what is not there";
    write(user.path() / "applications" / "other.desktop", "[Desktop Entry]\n");
    EXPECT_TRUE(SoftwareCentre::exists(folders));
}

} // namespace

} // namespace pallistrom
