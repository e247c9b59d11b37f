// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "shell/UpdaterManager.h"

namespace pallistrom {

UpdaterManager::UpdaterManager() : m_updater(Updater::startedUpdater()) {}

UpdaterManager& UpdaterManager::shared() {
    static auto* const manager = new UpdaterManager;
    return *manager;
}

void UpdaterManager::checkForUpdates() {
    m_updater->checkForUpdates();
}

bool UpdaterManager::automaticChecksEnabled() const {
    return m_updater->automaticallyChecksForUpdates();
}

void UpdaterManager::setAutomaticChecksEnabled(bool enabled) {
    m_updater->setAutomaticallyChecksForUpdates(enabled);
}

} // namespace pallistrom
