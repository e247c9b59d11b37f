// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/AppcastUpdater.h"

#include "pallistrom/Names.h"
#include "platform/Log.h"
#include "platform/linux/update/UpdateSchedule.h"
#include "platform/linux/update/VersionOrder.h"

#include <sodium.h>

#include <algorithm>
#include <utility>

namespace pallistrom {

// A check that runs. Without the context nothing of it arrives any more.
struct AppcastUpdater::Look {
    explicit Look(UpdateCheck kind) : check(kind) {}

    UpdateCheck check;
    QObject context;
    std::optional<WorkerThread> thread;
};

AppcastUpdater::AppcastUpdater(UpdaterParts parts)
    : m_parts(std::move(parts)), m_stateFile(m_parts.stateFolder) {
    if (!canCheck()) {
        return;
    }
    m_state = m_stateFile.load();
    m_state.lastCheck = UpdateSchedule::believable(m_state.lastCheck, m_parts.clock->now());
    if (!m_state.rollOutGroup) {
        m_state.rollOutGroup = static_cast<int>(randombytes_uniform(UpdateChoice::rollOutGroups));
    }
    schedule(UpdateSchedule::pauseAfterStart);
}

AppcastUpdater::~AppcastUpdater() = default;

bool AppcastUpdater::automaticallyChecksForUpdates() const {
    return canCheck() && m_state.checksByItself.value_or(m_parts.settings.checksByItself);
}

void AppcastUpdater::setAutomaticallyChecksForUpdates(bool automatically) {
    if (canCheck() && m_state.checksByItself != automatically) {
        m_state.checksByItself = automatically;
        m_stateFile.save(m_state);
        schedule(UpdateSchedule::pauseAfterStart);
    }
}

// Nothing is due while there is something to be answered.
void AppcastUpdater::schedule(std::chrono::seconds atLeast) {
    if (!automaticallyChecksForUpdates() || m_look || m_conversation) {
        m_parts.clock->stop();
        return;
    }
    const auto wait =
        UpdateSchedule::wait(m_state.lastCheck, m_parts.clock->now(), m_parts.settings.interval);
    m_parts.clock->wakeIn(std::max(wait, atLeast), [this] { look(UpdateCheck::Scheduled); });
}

void AppcastUpdater::checkForUpdates() {
    if (!canCheck()) {
        NSLog("Pallistrom: no update check: " + m_parts.settings.problem);
        driver().showFailure(m_parts.settings.problem);
        return;
    }
    const bool isUnderWay = m_conversation || (m_look && m_look->check == UpdateCheck::Asked);
    if (isUnderWay && driver().bringToFront()) {
        return;
    }
    // A window that is gone without an answer ends what it was about.
    m_installation.reset();
    m_conversation.reset();
    driver().showChecking([this] { giveUpLooking(); });
    look(UpdateCheck::Asked);
}

void AppcastUpdater::look(UpdateCheck check) {
    m_look = std::make_unique<Look>(check);
    m_parts.clock->stop();
    auto feedRules = rules(m_parts.limits.feedTime);
    feedRules.bytes = m_parts.limits.feedBytes;
    auto download = std::make_unique<FeedDownload>(FeedRequest{.address = m_parts.settings.feed,
                                                               .key = m_parts.settings.key,
                                                               .rules = feedRules,
                                                               .newestSeen = m_state.newestVersion,
                                                               .situation = situation(check)});
    QObject::connect(download.get(),
                     &FeedDownload::answered,
                     &m_look->context,
                     [this, check](const FeedAnswer& answer) { looked(check, answer); });
    m_look->thread.emplace(std::move(download));
}

void AppcastUpdater::looked(UpdateCheck check, const FeedAnswer& answer) {
    m_look.reset();
    remember(answer);
    if (!answer.problem.empty()) {
        NSLog("Pallistrom: the update check failed: " + answer.problem);
    }
    if (answer.found) {
        offer(*answer.found);
    } else if (check == UpdateCheck::Asked && !answer.problem.empty()) {
        driver().showFailure(answer.problem);
    } else if (check == UpdateCheck::Asked) {
        driver().showUpToDate(m_parts.settings.shownVersion);
    }
    schedule(UpdateSchedule::pauseAfterStart);
}

void AppcastUpdater::remember(const FeedAnswer& answer) {
    const auto now = m_parts.clock->now();
    if (answer.problem.empty()) {
        m_state.lastCheck = now;
        if (!answer.newestVersion.empty()) {
            m_state.newestVersion = answer.newestVersion;
        }
    } else {
        m_state.lastCheck = UpdateSchedule::afterFailure(now, m_parts.settings.interval);
    }
    m_stateFile.save(m_state);
}

void AppcastUpdater::giveUpLooking() {
    m_look.reset();
    driver().dismiss();
    schedule(UpdateSchedule::pauseAfterStart);
}

void AppcastUpdater::offer(const FoundUpdate& found) {
    m_conversation = {.found = found, .offer = offerOf(found)};
    const UpdateOffer& offer = m_conversation->offer;
    NSLog("Pallistrom: version " + offer.newVersion + " is there");
    driver().showOffer(offer, [this](OfferAnswer said) { answer(said); });
}

void AppcastUpdater::answer(OfferAnswer answer) {
    switch (answer) {
    case OfferAnswer::Skip:
        if (!m_conversation->found.isCritical) {
            m_state.skippedVersion = m_conversation->found.item.version;
            m_stateFile.save(m_state);
        }
        driver().dismiss();
        endConversation();
        break;
    case OfferAnswer::Later:
        driver().dismiss();
        endConversation();
        break;
    case OfferAnswer::Install:
        install();
        break;
    }
}

void AppcastUpdater::install() {
    const auto& [found, offer] = *m_conversation;
    switch (offer.kind) {
    case InstallKind::ReplaceItself:
        m_installation = std::make_unique<UpdateInstallation>(driver(), installer(), offer);
        m_installation->start({.archive = *found.archive,
                               .key = m_parts.settings.key,
                               .rules = rules(m_parts.limits.archiveTime),
                               .folder = m_parts.archiveFolder},
                              [this] { endConversation(); });
        return;
    case InstallKind::Package:
        driver().showPackageWay(offer, installer().packageCommand());
        break;
    case InstallKind::Elsewhere:
        driver().dismiss();
        if (!offer.link.empty()) {
            installer().openPage(offer.link);
        }
        break;
    }
    endConversation();
}

void AppcastUpdater::endConversation() {
    m_installation.reset();
    m_conversation.reset();
    schedule(UpdateSchedule::pauseAfterStart);
}

UpdateSituation AppcastUpdater::situation(UpdateCheck check) const {
    return {.check = check,
            .currentVersion = m_parts.settings.currentVersion,
            .systemVersion = m_parts.systemVersion,
            .machine = m_parts.machine,
            .channels = m_parts.channels,
            .skippedVersion = m_state.skippedVersion,
            .now = m_parts.clock->now(),
            .rollOutGroup = m_state.rollOutGroup.value_or(0),
            .longestArchive = m_parts.limits.archiveBytes};
}

DownloadRules AppcastUpdater::rules(std::chrono::milliseconds time) const {
    return {.policy = policyForFeed(m_parts.settings.feed),
            .userAgent = std::string(Names::product) + "/" + m_parts.settings.shownVersion,
            .total = time,
            .silence = m_parts.limits.silence};
}

UpdateOffer AppcastUpdater::offerOf(const FoundUpdate& found) {
    const QUrl link(QString::fromStdString(found.item.link), QUrl::StrictMode);
    return {.newVersion = found.item.shortVersion,
            .currentVersion = m_parts.settings.shownVersion,
            .notes = found.item.notes,
            .link = mayFetch(link, AddressPolicy::SecureOnly) ? found.item.link : std::string(),
            .kind = found.archive ? installer().kind() : InstallKind::Elsewhere,
            .isCritical = found.isCritical};
}

UpdateUserDriver& AppcastUpdater::driver() {
    if (!m_driver) {
        m_driver = m_parts.makeUserDriver();
    }
    return *m_driver;
}

UpdateInstaller& AppcastUpdater::installer() {
    if (!m_installer) {
        m_installer = m_parts.makeInstaller();
    }
    return *m_installer;
}

} // namespace pallistrom
