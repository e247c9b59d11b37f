// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/UpdateSettings.h"

#include "platform/Bundle.h"
#include "platform/linux/Text.h"
#include "platform/linux/update/AddressPolicy.h"
#include "platform/linux/update/UpdateSchedule.h"

namespace pallistrom {

UpdateSettings UpdateSettings::read(const Entry& entry) {
    const auto text = [&](std::string_view name) {
        return entry(name).value_or(std::string());
    };
    UpdateSettings settings;
    settings.feed = QUrl(QString::fromStdString(text("SUFeedURL")), QUrl::StrictMode);
    settings.checksByItself = Text::boolean(text("SUEnableAutomaticChecks")).value_or(true);
    settings.interval = UpdateSchedule::interval(text("SUScheduledCheckInterval"));
    settings.shownVersion = text(CFBundleShortVersionString);
    settings.currentVersion = text("CFBundleVersion");
    const std::string key = text("SUPublicEDKey");
    if (key.empty() || settings.feed.isEmpty()) {
        settings.problem = "This build has no update feed.";
    } else if (!mayFetch(settings.feed, policyForFeed(settings.feed))) {
        settings.problem = "The address of this build's update feed is not a secure one.";
    } else if (settings.currentVersion.empty()) {
        settings.problem = "This build does not know its version.";
    } else if (const auto readKey = Ed25519Key::fromBase64(key)) {
        settings.key = *readKey;
    } else {
        settings.problem = "This build's public key for updates is damaged.";
    }
    return settings;
}

} // namespace pallistrom
