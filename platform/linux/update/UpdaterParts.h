// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/UpdateClock.h"
#include "platform/linux/update/UpdateInstaller.h"
#include "platform/linux/update/UpdateSettings.h"
#include "platform/linux/update/UpdateUserDriver.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <set>
#include <string>

namespace pallistrom {

/// How much an update may cost in time and space.
struct UpdateLimits {
    std::uint64_t feedBytes = std::uint64_t{1} << 20;
    std::uint64_t archiveBytes = std::uint64_t{256} << 20;
    std::chrono::milliseconds feedTime = std::chrono::minutes(1);
    std::chrono::milliseconds archiveTime = std::chrono::hours(2);
    std::chrono::milliseconds silence = std::chrono::seconds(30);
};

/// What an updater is put together from.
struct UpdaterParts {
    UpdateSettings settings;
    std::filesystem::path stateFolder;
    std::filesystem::path archiveFolder; ///< emptied and removed at will
    std::string systemVersion;
    std::string machine;
    std::set<std::string> channels; ///< besides everybody's
    UpdateLimits limits;
    std::unique_ptr<UpdateClock> clock;
    /// Called when there is something to show or to install for the first time.
    std::function<std::unique_ptr<UpdateUserDriver>()> makeUserDriver;
    std::function<std::unique_ptr<UpdateInstaller>()> makeInstaller;
};

} // namespace pallistrom
