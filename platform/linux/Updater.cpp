// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/Updater.h"

#include "platform/Log.h"

namespace pallistrom {

namespace {

/// For a build that has no feed to look at.
class NoUpdater final : public Updater {
public:
    void checkForUpdates() override { NSLog("Pallistrom: this build has no update feed"); }

    [[nodiscard]] bool automaticallyChecksForUpdates() const override { return false; }

    void setAutomaticallyChecksForUpdates(bool /*automatically*/) override {}
};

} // namespace

std::unique_ptr<Updater> Updater::startedUpdater() {
    return std::make_unique<NoUpdater>();
}

} // namespace pallistrom
