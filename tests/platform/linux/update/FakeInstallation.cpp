// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FakeInstallation.h"

#include <fstream>
#include <iterator>
#include <utility>

namespace pallistrom {

class FakeInstallation::Installer final : public UpdateInstaller {
public:
    explicit Installer(FakeInstallation& installation) : m_installation(installation) {}

    [[nodiscard]] InstallKind kind() const override { return m_installation.kind; }

    void install(const std::filesystem::path& downloaded,
                 const UpdateOffer& /*offer*/,
                 std::function<void(const std::string& problem)> whenDone) override {
        m_installation.archive = downloaded;
        if (m_installation.isRead) {
            std::ifstream file(downloaded, std::ios::binary);
            m_installation.installed = {std::istreambuf_iterator<char>(file), {}};
        }
        m_installation.done = std::move(whenDone);
    }

    [[nodiscard]] std::string packageCommand() const override { return "upgrade the-package"; }

    void openPage(const std::string& link) override { m_installation.page = link; }

    void restart() override { m_installation.hasRestarted = true; }

private:
    FakeInstallation& m_installation;
};

std::unique_ptr<UpdateInstaller> FakeInstallation::makeInstaller() {
    return std::make_unique<Installer>(*this);
}

} // namespace pallistrom
