// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "TinyDisk.h"

#include <gtest/gtest.h>
#include <sys/mount.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <string>

namespace pallistrom {

bool TinyDisk::mountOn(const std::filesystem::path& folder) {
    m_folder = folder;
    return mount("none", folder.c_str(), "tmpfs", 0, "size=64k") == 0;
}

void TinyDisk::fill(int pagesLeft) const {
    const auto page = static_cast<std::uintmax_t>(sysconf(_SC_PAGESIZE));
    std::ofstream file(filler(), std::ios::binary);
    const std::string text(page, 'x');
    while (file << text << std::flush) {
    }
    file.close();
    EXPECT_EQ(std::filesystem::space(m_folder).available, 0U);
    std::filesystem::resize_file(filler(),
                                 std::filesystem::file_size(filler()) -
                                     page * static_cast<std::uintmax_t>(pagesLeft));
}

void TinyDisk::makeRoom() const {
    std::filesystem::remove(filler());
}

} // namespace pallistrom
