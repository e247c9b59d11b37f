// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FakePlatform.h"
#include "platform/Bundle.h"
#include "platform/LoginItem.h"
#include "platform/ProcessInfo.h"
#include "platform/Updater.h"
#include "platform/Workspace.h"

// What the desktop is asked, answered by the fake platform that exists at the time.

namespace pallistrom {

using fake::Platform;

// --- The bundle.

std::optional<std::string> objectForInfoDictionaryKey(std::string_view key) {
    const auto& entries = Platform::current().infoDictionary;
    const auto found = entries.find(key);
    return found == entries.end() ? std::nullopt : std::optional(found->second);
}

std::string NSLocalizedString(std::string_view key) {
    const auto& texts = Platform::current().localizedStrings;
    const auto found = texts.find(key);
    return found == texts.end() ? std::string(key) : found->second;
}

NSOperatingSystemVersion operatingSystemVersion() {
    return Platform::current().systemVersion;
}

// --- The workspace.

bool openURL(std::string_view url) {
    Platform::current().openedURLs.emplace_back(url);
    return Platform::current().opensURLs;
}

bool accessibilityDisplayShouldReduceMotion() {
    return Platform::current().reducesMotion;
}

// --- The updater.

namespace {

class FakeUpdater final : public Updater {
public:
    void checkForUpdates() override { ++Platform::current().updateChecks; }

    [[nodiscard]] bool automaticallyChecksForUpdates() const override {
        return Platform::current().checksAutomatically;
    }

    void setAutomaticallyChecksForUpdates(bool automatically) override {
        Platform::current().checksAutomatically = automatically;
    }
};

} // namespace

std::unique_ptr<Updater> Updater::startedUpdater() {
    Platform::current().calls.emplace_back("startUpdater");
    return std::make_unique<FakeUpdater>();
}

// --- The login item.

namespace {

std::optional<NSError> changeLoginItem(std::string_view call, SMAppServiceStatus status) {
    auto& platform = Platform::current();
    platform.calls.emplace_back(call);
    if (!platform.loginItemRefusal) {
        platform.loginItemStatus = status;
    }
    return platform.loginItemRefusal;
}

} // namespace

SMAppService SMAppService::mainAppService() {
    return {};
}

SMAppServiceStatus SMAppService::status() const {
    return Platform::current().loginItemStatus;
}

std::optional<NSError> SMAppService::registerAndReturnError() const {
    return changeLoginItem("registerLoginItem", SMAppServiceStatus::SMAppServiceStatusEnabled);
}

std::optional<NSError> SMAppService::unregisterAndReturnError() const {
    return changeLoginItem("unregisterLoginItem",
                           SMAppServiceStatus::SMAppServiceStatusNotRegistered);
}

} // namespace pallistrom
