// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/windows/UpdateConversation.h"

#include <utility>

namespace pallistrom {

using Arrival = UpdateWindow::Arrival;
using UpdatePages::Step;

namespace {

// The only choice of a page is to end its step.
std::function<void(UpdatePage::Choice)> onAny(std::function<void()> function) {
    return [function = std::move(function)](UpdatePage::Choice /*choice*/) {
        function();
    };
}

OfferAnswer answerOf(UpdatePage::Choice choice) {
    switch (choice) {
    case UpdatePage::Choice::Skip:
        return OfferAnswer::Skip;
    case UpdatePage::Choice::Install:
        return OfferAnswer::Install;
    default:
        return OfferAnswer::Later;
    }
}

} // namespace

UpdateConversation::UpdateConversation(Desktop desktop)
    : m_desktop(std::move(desktop)), m_window([this](Choice choice) { chosen(choice); }) {
    m_nextTurn.setSingleShot(true);
    QObject::connect(&m_nextTurn, &QTimer::timeout, &m_window, [this] { serve(); });
}

void UpdateConversation::showChecking(std::function<void()> cancel) {
    m_step = Step::Check;
    m_newVersion.clear();
    show(UpdatePages::checking(), Arrival::Asked, onAny(std::move(cancel)));
}

void UpdateConversation::showUpToDate(const std::string& currentVersion) {
    show(UpdatePages::upToDate(currentVersion), Arrival::Asked, {});
}

void UpdateConversation::showOffer(const UpdateOffer& offer,
                                   std::function<void(OfferAnswer)> answer) {
    m_newVersion = offer.newVersion;
    const bool staysOpen = offer.kind != InstallKind::Elsewhere;
    show(UpdatePages::offer(offer),
         Arrival::Unasked,
         [this, staysOpen, answer = std::move(answer)](Choice choice) {
             if (choice == Choice::Install && !staysOpen) {
                 m_window.hide();
             }
             answer(answerOf(choice));
         });
}

void UpdateConversation::showDownload(std::function<void()> cancel) {
    m_step = Step::Download;
    show(UpdatePages::download(m_newVersion), Arrival::Unasked, onAny(std::move(cancel)));
    m_isDownloading = true;
}

void UpdateConversation::showProgress(std::uint64_t received, std::uint64_t expected) {
    if (m_isDownloading) {
        m_window.setProgress(received, expected, UpdatePages::progressText(received, expected));
    }
}

void UpdateConversation::showInstalling() {
    m_step = Step::Installation;
    show(UpdatePages::installing(m_newVersion), Arrival::Unasked, {});
}

void UpdateConversation::showInstalled(const std::string& newVersion,
                                       std::function<void(bool restartNow)> answer) {
    show(UpdatePages::installed(newVersion),
         Arrival::Unasked,
         [answer = std::move(answer)](Choice choice) { answer(choice == Choice::Restart); });
}

void UpdateConversation::showPackageWay(const UpdateOffer& offer, const std::string& command) {
    const auto centre = m_desktop.hasSoftwareCentre() ? UpdatePages::SoftwareCentre::There
                                                      : UpdatePages::SoftwareCentre::Missing;
    show(UpdatePages::packageWay(offer, command, centre), Arrival::Asked, [this](Choice choice) {
        if (choice == Choice::SoftwareCentre) {
            m_desktop.openSoftwareCentre();
        }
    });
}

void UpdateConversation::showFailure(const std::string& reason) {
    show(UpdatePages::failure(m_step, reason), Arrival::Asked, {});
}

bool UpdateConversation::bringToFront() {
    if (!m_window.isVisible()) {
        return false;
    }
    m_desktop.comeToFront();
    m_window.bringToFront();
    return true;
}

void UpdateConversation::dismiss() {
    m_isDownloading = false;
    m_onChoice = {};
    m_nextTurn.stop();
    m_window.hide();
}

void UpdateConversation::show(const UpdatePage& page,
                              Arrival arrival,
                              std::function<void(Choice)> onChoice) {
    // An answer to the page before that has not been served yet would come too late.
    m_nextTurn.stop();
    m_isDownloading = false;
    m_onChoice = std::move(onChoice);
    if (arrival == Arrival::Asked && !m_window.isVisible()) {
        m_desktop.comeToFront(); // The window that is shown after this is the one that comes.
    }
    m_window.showPage(page, arrival);
}

// A page that waits for its successor stays on the screen, so that it is one window that changes.
void UpdateConversation::chosen(Choice choice) {
    if (choice == Choice::CopyCommand) {
        return;
    }
    if (choice != Choice::Install) {
        m_window.hide();
    }
    m_choice = choice;
    m_nextTurn.start(0);
}

void UpdateConversation::serve() {
    const auto onChoice = std::exchange(m_onChoice, {});
    if (onChoice && m_choice) {
        onChoice(*std::exchange(m_choice, std::nullopt));
    }
}

} // namespace pallistrom
