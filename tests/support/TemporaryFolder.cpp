// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "TemporaryFolder.h"

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

namespace pallistrom {

TemporaryFolder::TemporaryFolder() {
    std::string name = std::filesystem::temp_directory_path() / "pallistrom-XXXXXX";
    if (::mkdtemp(name.data()) == nullptr) {
        throw std::system_error{errno, std::generic_category(), name};
    }
    m_path = name;
}

TemporaryFolder::~TemporaryFolder() {
    // What cannot be removed stays in the folder for temporary files, and fails no test.
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

} // namespace pallistrom
