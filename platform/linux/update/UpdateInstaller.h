// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/UpdateUserDriver.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace pallistrom {

/// How this installation of the program gets to be a newer one. Trusts what it is given: whoever
/// calls has checked the signatures. Main thread only.
class UpdateInstaller {
public:
    UpdateInstaller() = default;
    UpdateInstaller(const UpdateInstaller&) = delete;
    UpdateInstaller& operator=(const UpdateInstaller&) = delete;
    virtual ~UpdateInstaller() = default;

    /// Returns a new one for the program that runs.
    [[nodiscard]] static std::unique_ptr<UpdateInstaller> standardInstaller();

    /// How this installation came, and so how a newer one has to. Cheap: it is asked at each offer.
    [[nodiscard]] virtual InstallKind kind() const = 0;

    /// Of ReplaceItself: puts the program that is packed in `archive` in the place of this one, all
    /// of it or none. Returns soon, and later calls `done` once, from the event loop: with an empty
    /// text if the new version is in place, or else with a sentence that says what stood in the
    /// way. `archive` stays where it is until then, and is the caller's to remove. No `done` comes
    /// any more once the installer is destroyed.
    virtual void install(const std::filesystem::path& archive,
                         const UpdateOffer& offer,
                         std::function<void(const std::string& problem)> done) = 0;

    /// Of Package: the command line that brings the new version, for people to read and copy.
    [[nodiscard]] virtual std::string packageCommand() const = 0;

    /// Of Elsewhere, and of an offer that is only news: opens the page `link`, an https address.
    virtual void openPage(const std::string& link) = 0;

    /// Of ReplaceItself, once the new version is in place: ends this program and starts that one.
    virtual void restart() = 0;
};

} // namespace pallistrom
