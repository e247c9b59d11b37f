// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace pallistrom {

/// How a new version gets onto this computer.
enum class InstallKind : std::uint8_t {
    ReplaceItself, ///< from an archive in the user's own folders: the program does it
    Package,       ///< from a package: the package manager does it, and is shown the way to
    Elsewhere,     ///< all the program can do is to open the page of the new version
};

/// A newer version, as it is shown to the user. All texts are plain, checked and of bounded length.
struct UpdateOffer {
    std::string newVersion;     ///< as people read it
    std::string currentVersion; ///< as people read it
    std::string notes;          ///< plain text; may be empty
    std::string link;           ///< an https address to read more at; may be empty
    InstallKind kind = InstallKind::Elsewhere;
    bool isCritical = false; ///< cannot be skipped
};

/// What the user makes of an offer.
enum class OfferAnswer : std::uint8_t {
    Skip,    ///< never mention this version again
    Later,   ///< mention it again
    Install, ///< or, where the program cannot, show how
};

/// The conversation of an update check: one window at a time, each step taking the place of the one
/// before. The functions it is given are called at most once, and from the event loop, never from
/// within a call. Main thread only.
class UpdateUserDriver {
public:
    UpdateUserDriver() = default;
    UpdateUserDriver(const UpdateUserDriver&) = delete;
    UpdateUserDriver& operator=(const UpdateUserDriver&) = delete;
    virtual ~UpdateUserDriver() = default;

    /// Returns a new one that shows windows.
    [[nodiscard]] static std::unique_ptr<UpdateUserDriver> standardUserDriver();

    /// A check that the user asked for has begun.
    virtual void showChecking(std::function<void()> cancel) = 0;

    /// There is nothing newer than `currentVersion`.
    virtual void showUpToDate(const std::string& currentVersion) = 0;

    /// There is something newer. A window that is closed answers Later.
    virtual void showOffer(const UpdateOffer& offer, std::function<void(OfferAnswer)> answer) = 0;

    /// The download has begun.
    virtual void showDownload(std::function<void()> cancel) = 0;

    /// Of the download: how much there is (0 if nobody knows) and how much has come.
    virtual void showProgress(std::uint64_t received, std::uint64_t expected) = 0;

    /// All has come and is being checked and unpacked, which cannot be cancelled.
    virtual void showInstalling() = 0;

    /// The new version is in place. The answer says whether to start it now.
    virtual void showInstalled(const std::string& newVersion,
                               std::function<void(bool restartNow)> answer) = 0;

    /// The new version has to come from the package manager: shows `command`, and how to open the
    /// software centre where there is one.
    virtual void showPackageWay(const UpdateOffer& offer, const std::string& command) = 0;

    /// What the user asked for has failed. `reason` is a sentence.
    virtual void showFailure(const std::string& reason) = 0;

    /// Brings the window that is open to the front. Returns whether there is one.
    virtual bool bringToFront() = 0;

    /// Closes whatever is open; nothing is answered any more.
    virtual void dismiss() = 0;
};

} // namespace pallistrom
