// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace pallistrom {

/// What looks for newer versions of the program, by itself and when told to. Shows what it finds in
/// windows of its own.
class Updater {
public:
    Updater() = default;
    Updater(const Updater&) = delete;
    Updater& operator=(const Updater&) = delete;
    virtual ~Updater() = default;

    /// Returns a new updater whose scheduled checks run from now on.
    static std::unique_ptr<Updater> startedUpdater();

    /// Looks for a newer version now, and tells the user what came of it.
    virtual void checkForUpdates() = 0;

    /// Whether it checks by itself. Kept by the updater.
    [[nodiscard]] virtual bool automaticallyChecksForUpdates() const = 0;
    virtual void setAutomaticallyChecksForUpdates(bool automatically) = 0;
};

} // namespace pallistrom
