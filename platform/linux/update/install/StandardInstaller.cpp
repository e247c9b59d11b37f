// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/StandardInstaller.h"

#include "pallistrom/Names.h"
#include "platform/Precondition.h"
#include "platform/Workspace.h"
#include "platform/linux/ThisProgram.h"
#include "platform/linux/application/QtApplication.h"
#include "platform/linux/system/OsRelease.h"
#include "platform/linux/update/install/PackageCommand.h"
#include "platform/linux/update/install/Tools.h"
#include "platform/linux/update/install/UpdateFolder.h"

#include <system_error>
#include <utility>

namespace pallistrom {

namespace fs = std::filesystem;

std::unique_ptr<UpdateInstaller> UpdateInstaller::standardInstaller() {
    return std::make_unique<StandardInstaller>(ThisProgram::file());
}

StandardInstaller::StandardInstaller(fs::path program)
    : m_program(std::move(program)),
      m_evidence(InstallEvidence::ofProgram(m_program)),
      m_topFolder(m_evidence.topFolder()) {
    if (m_evidence.kind() == InstallKind::ReplaceItself) {
        tidyUp();
    }
}

void StandardInstaller::tidyUp() {
    for (const fs::path& folder : UpdateFolder::leftBeside(m_topFolder)) {
        Tools::removeLater(folder);
    }
    m_program = m_topFolder / "bin" / Names::program;
}

InstallKind StandardInstaller::kind() const {
    return m_evidence.kind();
}

void StandardInstaller::install(const fs::path& archive,
                                const UpdateOffer& offer,
                                std::function<void(const std::string& problem)> done) {
    precondition(kind() == InstallKind::ReplaceItself, "a package replaces itself");
    m_installation = std::make_unique<ArchiveInstallation>(
        ArchiveInstallation::Order{.archive = archive,
                                   .topFolder = m_topFolder,
                                   .running = "/proc/self/exe",
                                   .version = offer.newVersion},
        std::move(done));
}

std::string StandardInstaller::packageCommand() const {
    std::error_code ignored;
    const bool isImage = fs::exists("/run/ostree-booted", ignored);
    return PackageCommand::forSystem(OsRelease::ofSystem(),
                                     isImage ? PackageCommand::SystemFiles::Image
                                             : PackageCommand::SystemFiles::Single);
}

void StandardInstaller::openPage(const std::string& link) {
    // Nothing but a page, whoever asks.
    if (link.starts_with("https://")) {
        openURL(link);
    }
}

void StandardInstaller::restart() {
    qtApplication().restart(m_program);
}

} // namespace pallistrom
