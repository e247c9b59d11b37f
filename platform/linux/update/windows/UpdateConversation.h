// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/UpdateUserDriver.h"
#include "platform/linux/update/windows/UpdatePages.h"
#include "platform/linux/update/windows/UpdateWindow.h"

#include <QTimer>

#include <functional>
#include <optional>

namespace pallistrom {

/// The update conversation in one window that changes from step to step. It comes to the front if
/// the user asked for the check, and stays behind if an offer is the first thing that it shows.
class UpdateConversation final : public UpdateUserDriver {
public:
    /// What the conversation needs of the desktop.
    struct Desktop {
        std::function<void()> comeToFront; ///< brings the program's windows before all others
        std::function<bool()> hasSoftwareCentre;
        std::function<void()> openSoftwareCentre;
    };

    explicit UpdateConversation(Desktop desktop);

    void showChecking(std::function<void()> cancel) override;
    void showUpToDate(const std::string& currentVersion) override;
    void showOffer(const UpdateOffer& offer, std::function<void(OfferAnswer)> answer) override;
    void showDownload(std::function<void()> cancel) override;
    void showProgress(std::uint64_t received, std::uint64_t expected) override;
    void showInstalling() override;
    void showInstalled(const std::string& newVersion,
                       std::function<void(bool restartNow)> answer) override;
    void showPackageWay(const UpdateOffer& offer, const std::string& command) override;
    void showFailure(const std::string& reason) override;
    bool bringToFront() override;
    void dismiss() override;

private:
    using Choice = UpdatePage::Choice;

    void show(const UpdatePage& page,
              UpdateWindow::Arrival arrival,
              std::function<void(Choice)> onChoice);
    void chosen(Choice choice);
    void serve();

    Desktop m_desktop;
    UpdateWindow m_window;
    std::function<void(Choice)> m_onChoice; ///< of the page that is open, until it has been made
    std::optional<Choice> m_choice;         ///< to be served by the next turn of the loop
    QTimer m_nextTurn;
    UpdatePages::Step m_step = UpdatePages::Step::Check;
    std::string m_newVersion;
    bool m_isDownloading = false;
};

} // namespace pallistrom
