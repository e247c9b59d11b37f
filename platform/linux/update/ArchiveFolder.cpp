// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/ArchiveFolder.h"

#include <sys/stat.h>

#include <system_error>
#include <utility>

namespace pallistrom {

namespace fs = std::filesystem;

ArchiveFolder::ArchiveFolder(fs::path path) : m_path(std::move(path)) {
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
    fs::create_directories(m_path.parent_path(), ignored);
    // Fails if anybody has made one in between.
    m_isThere = mkdir(m_path.c_str(), S_IRWXU) == 0;
}

ArchiveFolder::~ArchiveFolder() {
    if (m_isThere) {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }
}

} // namespace pallistrom
