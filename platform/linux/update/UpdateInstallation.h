// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/ArchiveDownload.h"
#include "platform/linux/update/UpdateInstaller.h"
#include "platform/linux/update/UpdateUserDriver.h"
#include "platform/linux/update/WorkerThread.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace pallistrom {

/// Brings a new version that the user wants, and tells how it goes: the download, the check, the
/// installation, and the question whether to start it now. Destroying it ends whatever it is at.
class UpdateInstallation {
public:
    /// The driver and the installer outlive this.
    UpdateInstallation(UpdateUserDriver& driver, UpdateInstaller& installer, UpdateOffer offer);

    /// Calls `ended` once, when there is nothing left to do. It may destroy this.
    void start(ArchiveRequest request, std::function<void()> ended);

private:
    void cancelled();
    void downloaded(const QString& problem, const QString& file);
    void installed(const std::string& problem);
    void answered(bool restartNow);
    void fail(const std::string& problem);
    void end();

    UpdateUserDriver& m_driver;
    UpdateInstaller& m_installer;
    UpdateOffer m_offer;
    std::function<void()> m_ended;
    QObject m_context; ///< what the thread's news come to, for as long as they are wanted
    std::optional<WorkerThread> m_thread;
};

} // namespace pallistrom
