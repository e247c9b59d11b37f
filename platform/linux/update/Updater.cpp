// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/Updater.h"

#include "pallistrom/Names.h"
#include "platform/Bundle.h"
#include "platform/linux/SessionPaths.h"
#include "platform/linux/update/AppcastUpdater.h"
#include "platform/linux/update/SystemUpdateClock.h"

#include <sys/utsname.h>

namespace pallistrom {

std::unique_ptr<Updater> Updater::startedUpdater() {
    utsname system{};
    uname(&system);
    return std::make_unique<AppcastUpdater>(UpdaterParts{
        .settings = UpdateSettings::read(objectForInfoDictionaryKey),
        .stateFolder = SessionPaths::stateHome() / Names::settingsFolder,
        .archiveFolder = SessionPaths::cacheHome() / Names::settingsFolder / "update",
        .systemVersion = static_cast<const char*>(system.release),
        .machine = static_cast<const char*>(system.machine),
        .channels = {},
        .limits = {},
        .clock = std::make_unique<SystemUpdateClock>(),
        .makeUserDriver = UpdateUserDriver::standardUserDriver,
        .makeInstaller = UpdateInstaller::standardInstaller,
    });
}

} // namespace pallistrom
