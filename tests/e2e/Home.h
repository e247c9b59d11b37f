// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "TemporaryFolder.h"

#include <filesystem>
#include <map>
#include <string>

namespace pallistrom::e2e {

/// A home folder for the programs of a test, and the environment that confines them to it: no
/// session bus, no settings and no toolkit plug-ins of the person who runs the tests.
class Home {
public:
    /// Makes the folder and the folders in it.
    Home();

    const std::filesystem::path& path() const { return m_folder.path(); }

    std::filesystem::path configFolder() const { return path() / "config"; }

    /// The whole environment of a program on the X display `display`.
    std::map<std::string, std::string> environment(const std::string& display) const;

private:
    TemporaryFolder m_folder;
};

} // namespace pallistrom::e2e
