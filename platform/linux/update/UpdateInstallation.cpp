// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/UpdateInstallation.h"

#include "platform/Log.h"

#include <utility>

namespace pallistrom {

UpdateInstallation::UpdateInstallation(UpdateUserDriver& driver,
                                       UpdateInstaller& installer,
                                       UpdateOffer offer)
    : m_driver(driver), m_installer(installer), m_offer(std::move(offer)) {}

void UpdateInstallation::start(ArchiveRequest request, std::function<void()> ended) {
    m_ended = std::move(ended);
    auto download = std::make_unique<ArchiveDownload>(std::move(request));
    QObject::connect(
        download.get(),
        &ArchiveDownload::progressed,
        &m_context,
        [this](quint64 received, quint64 expected) { m_driver.showProgress(received, expected); });
    QObject::connect(download.get(), &ArchiveDownload::checking, &m_context, [this] {
        m_driver.showInstalling();
    });
    QObject::connect(
        download.get(),
        &ArchiveDownload::answered,
        &m_context,
        [this](const QString& problem, const QString& file) { downloaded(problem, file); });
    m_driver.showDownload([this] { cancelled(); });
    m_thread.emplace(std::move(download));
}

void UpdateInstallation::cancelled() {
    m_driver.dismiss();
    end();
}

void UpdateInstallation::downloaded(const QString& problem, const QString& file) {
    if (!problem.isEmpty()) {
        fail(problem.toStdString());
        return;
    }
    m_installer.install(
        file.toStdString(), m_offer, [this](const std::string& whyNot) { installed(whyNot); });
}

void UpdateInstallation::installed(const std::string& problem) {
    // The archive goes with the thread.
    m_thread.reset();
    if (!problem.empty()) {
        fail(problem);
        return;
    }
    NSLog("Pallistrom: version " + m_offer.newVersion + " is installed");
    m_driver.showInstalled(m_offer.newVersion, [this](bool restartNow) { answered(restartNow); });
}

void UpdateInstallation::answered(bool restartNow) {
    m_driver.dismiss();
    if (restartNow) {
        m_installer.restart();
    }
    end();
}

void UpdateInstallation::fail(const std::string& problem) {
    NSLog("Pallistrom: the update failed: " + problem);
    m_driver.showFailure(problem);
    end();
}

void UpdateInstallation::end() {
    m_thread.reset();
    // Last: it may destroy this.
    const auto ended = std::move(m_ended);
    ended();
}

} // namespace pallistrom
