// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/UpdateInstaller.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace pallistrom {

/// How the program is installed, and what becomes of it.
class FakeInstallation {
public:
    /// Returns the installer that acts here. It does not outlive this.
    [[nodiscard]] std::unique_ptr<UpdateInstaller> makeInstaller();

    InstallKind kind = InstallKind::ReplaceItself;
    std::filesystem::path archive; ///< that was to be installed
    std::string installed;         ///< the bytes of it, if they are to be read
    bool isRead = true;            ///< whether they are
    std::string page;              ///< that was opened
    bool hasRestarted = false;
    std::function<void(const std::string& problem)> done; ///< of the installation that goes on

private:
    class Installer;
};

} // namespace pallistrom
