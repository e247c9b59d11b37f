// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/BusConnection.h"
#include "platform/linux/keyboardservice/KeyboardService.h"
#include "platform/linux/keyboardservice/ServiceWords.h"
#include "platform/linux/keyboardservice/ThisSession.h"

#include <QTimer>

#include <array>
#include <memory>
#include <string>
#include <string_view>

namespace pallistrom {

/// The keyboard service over the system bus.
///
/// It is asked when it is first of interest, which may have the bus start it, and tells of changes
/// from then on. A service that ends is not started again from here, since it may have been stopped
/// or removed; one that comes back is asked anew. What is sent while there is no service is lost;
/// what a service finds too much is said again later.
class BusKeyboardService final : public KeyboardService {
    Q_OBJECT

public:
    /// `session` is the one that is spoken for; empty if it has no name.
    explicit BusKeyboardService(std::string session = ThisSession::name());

    [[nodiscard]] std::optional<Obstacle> obstacle() override;

    [[nodiscard]] Request request() const override { return m_request; }

    void lookAgain() override;
    void requestGrant() override;
    void withdrawGrant() override;
    void endPanic() override;
    void setTap(bool on) override;
    void setSwitches(std::uint32_t switches) override;
    void setModifiers(const ModifierTable& modifiers) override;
    void setFrontApplication(FrontApplication application) override;

private:
    void connectToBus();
    void busIsReady();
    void busIsLost();
    void forgetQuestions();

    void ask();
    void hearThatQuestionIsRefused(std::string_view error);
    void hearVersion(sd_bus_message* answer);
    void hearAccess(sd_bus_message* answer);
    void hearChange(sd_bus_message* signal);
    void hearOwner(sd_bus_message* signal);
    void hearActivatable(sd_bus_message* signal);
    void hearGrant(sd_bus_message* answer);
    void hearThatTapIsRefused(std::string_view error);

    void take(std::optional<Obstacle> obstacle);
    void considerRequest();

    std::unique_ptr<BusConnection> m_bus;
    std::array<BusSlot, 3> m_matches;
    BusSlot m_question; ///< of the version or the access, while it is open
    BusSlot m_grantCall;
    ServiceWords m_words;
    QTimer m_askAgain; ///< after a question that was too much
    std::string m_session;
    std::string m_owner;   ///< who speaks for the service
    bool m_isLost = false; ///< a bus that there was
    bool m_wantsGrant = false;
    Request m_request;
    std::optional<Obstacle> m_obstacle = Obstacle::NoSystemBus;
};

} // namespace pallistrom
