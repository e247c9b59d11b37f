// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Updater.h"
#include "platform/linux/update/FeedDownload.h"
#include "platform/linux/update/UpdateInstallation.h"
#include "platform/linux/update/UpdateState.h"
#include "platform/linux/update/UpdateStateFile.h"
#include "platform/linux/update/UpdaterParts.h"

#include <memory>
#include <optional>

namespace pallistrom {

/// Looks for newer versions in a signed feed: once in an interval by itself, and when asked to.
///
/// A check of its own shows nothing unless it finds something; what goes wrong is logged. One that
/// was asked for shows how it goes, whatever comes of it. Only one of either runs, and none while
/// an offer is open; asking again brings the window to the front.
///
///     check by itself, nothing new or trouble   no window
///     check asked for                           checking, then: up to date | trouble | offer
///     offer                                     skip | later | install
///     install, from an archive                  download, installing, then: trouble | installed
///     install, from a package or elsewhere      how to get it | its page
class AppcastUpdater final : public Updater {
public:
    explicit AppcastUpdater(UpdaterParts parts);
    ~AppcastUpdater() override;
    AppcastUpdater(const AppcastUpdater&) = delete;
    AppcastUpdater& operator=(const AppcastUpdater&) = delete;

    void checkForUpdates() override;
    [[nodiscard]] bool automaticallyChecksForUpdates() const override;
    void setAutomaticallyChecksForUpdates(bool automatically) override;

private:
    struct Look;

    struct Conversation {
        FoundUpdate found;
        UpdateOffer offer;
    };

    [[nodiscard]] bool canCheck() const { return m_parts.settings.problem.empty(); }

    [[nodiscard]] UpdateSituation situation(UpdateCheck check) const;
    [[nodiscard]] DownloadRules rules(std::chrono::milliseconds time) const;
    [[nodiscard]] UpdateOffer offerOf(const FoundUpdate& found);
    UpdateUserDriver& driver();
    UpdateInstaller& installer();

    void schedule(std::chrono::seconds atLeast);
    void look(UpdateCheck check);
    void looked(UpdateCheck check, const FeedAnswer& answer);
    void remember(const FeedAnswer& answer);
    void giveUpLooking();
    void offer(const FoundUpdate& found);
    void answer(OfferAnswer answer);
    void install();
    void endConversation();

    UpdaterParts m_parts;
    UpdateStateFile m_stateFile;
    UpdateState m_state;
    std::unique_ptr<UpdateInstaller> m_installer; ///< once there is an offer
    std::unique_ptr<UpdateUserDriver> m_driver;   ///< once there is anything to show
    std::unique_ptr<Look> m_look;                 ///< while a check runs
    std::optional<Conversation> m_conversation;   ///< until nothing is left to do about an offer
    std::unique_ptr<UpdateInstallation> m_installation;
};

} // namespace pallistrom
