// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Updater.h"

#include <memory>

namespace pallistrom {

/// The program's one door to its updater, which runs from the first access on.
class UpdaterManager {
public:
    UpdaterManager(const UpdaterManager&) = delete;
    UpdaterManager& operator=(const UpdaterManager&) = delete;
    ~UpdaterManager() = delete;

    /// Returns the one manager. Made on first use, from any thread; never destroyed.
    static UpdaterManager& shared();

    void checkForUpdates();

    /// Not kept here: the updater's own setting.
    [[nodiscard]] bool automaticChecksEnabled() const;
    void setAutomaticChecksEnabled(bool enabled);

private:
    UpdaterManager();

    std::unique_ptr<Updater> m_updater;
};

} // namespace pallistrom
