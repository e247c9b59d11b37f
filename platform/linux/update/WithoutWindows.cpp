// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/Log.h"
#include "platform/RunLoop.h"
#include "platform/Workspace.h"
#include "platform/linux/update/UpdateInstaller.h"
#include "platform/linux/update/UpdateUserDriver.h"

#include <utility>

namespace pallistrom {

namespace {

/// A conversation with the log. Nobody answers there, so each offer is put off.
class LogUserDriver final : public UpdateUserDriver {
public:
    void showChecking(std::function<void()> /*cancel*/) override {}

    void showUpToDate(const std::string& currentVersion) override {
        NSLog("Pallistrom: version " + currentVersion + " is the newest one");
    }

    void showOffer(const UpdateOffer& /*offer*/, std::function<void(OfferAnswer)> answer) override {
        dispatchAsyncOnMainQueue([answer = std::move(answer)] { answer(OfferAnswer::Later); });
    }

    void showDownload(std::function<void()> /*cancel*/) override {}

    void showProgress(std::uint64_t /*received*/, std::uint64_t /*expected*/) override {}

    void showInstalling() override {}

    void showInstalled(const std::string& /*newVersion*/,
                       std::function<void(bool)> answer) override {
        dispatchAsyncOnMainQueue([answer = std::move(answer)] { answer(false); });
    }

    void showPackageWay(const UpdateOffer& /*offer*/, const std::string& command) override {
        NSLog("Pallistrom: the new version comes by " + command);
    }

    void showFailure(const std::string& /*reason*/) override {}

    bool bringToFront() override { return false; }

    void dismiss() override {}
};

/// Leaves it to the user to get the new version.
class PageInstaller final : public UpdateInstaller {
public:
    [[nodiscard]] InstallKind kind() const override { return InstallKind::Elsewhere; }

    void install(const std::filesystem::path& /*archive*/,
                 const UpdateOffer& /*offer*/,
                 std::function<void(const std::string& problem)> done) override {
        dispatchAsyncOnMainQueue([done = std::move(done)] { done("It cannot replace itself."); });
    }

    [[nodiscard]] std::string packageCommand() const override { return {}; }

    void openPage(const std::string& link) override { openURL(link); }

    void restart() override {}
};

} // namespace

std::unique_ptr<UpdateUserDriver> UpdateUserDriver::standardUserDriver() {
    return std::make_unique<LogUserDriver>();
}

std::unique_ptr<UpdateInstaller> UpdateInstaller::standardInstaller() {
    return std::make_unique<PageInstaller>();
}

} // namespace pallistrom
