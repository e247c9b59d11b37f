// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/UpdateInstaller.h"
#include "platform/linux/update/install/ArchiveInstallation.h"
#include "platform/linux/update/install/InstallEvidence.h"

#include <filesystem>
#include <memory>

namespace pallistrom {

/// Installs in the way that fits where the program lies. What an installation that was interrupted
/// has left is put right when this is made.
class StandardInstaller final : public UpdateInstaller {
public:
    /// `program` is the file of the program that runs.
    explicit StandardInstaller(std::filesystem::path program);

    [[nodiscard]] InstallKind kind() const override;
    void install(const std::filesystem::path& archive,
                 const UpdateOffer& offer,
                 std::function<void(const std::string& problem)> done) override;
    [[nodiscard]] std::string packageCommand() const override;
    void openPage(const std::string& link) override;
    void restart() override;

private:
    void tidyUp();

    std::filesystem::path m_program;
    InstallEvidence m_evidence; ///< how it was when the program was started
    std::filesystem::path m_topFolder;
    std::unique_ptr<ArchiveInstallation> m_installation;
};

} // namespace pallistrom
