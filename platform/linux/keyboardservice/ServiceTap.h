// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/TapWay.h"
#include "platform/linux/front/FrontWatch.h"
#include "platform/linux/keyboardservice/KeyboardService.h"
#include "platform/linux/sessionkeys/SessionKeysWatch.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace pallistrom {

/// The way to the keys through the keyboard service. The service filters; all that is done here is
/// to tell it what it cannot know: which switches are on, which keys are modifiers in the session,
/// and who is in front. Each of them is told when the tap starts and when it changes.
///
/// A service that goes away and comes back while the tap is on is told everything again at once.
class ServiceTap final : public TapWay {
public:
    /// How the two things to watch in a session are found, once the tap starts.
    struct Session {
        std::function<std::unique_ptr<FrontWatch>(std::function<void()>)> watchFront =
            &FrontWatch::ofSession;
        std::function<std::unique_ptr<SessionKeysWatch>(std::function<void()>)> watchKeys =
            &SessionKeysWatch::ofSession;
    };

    /// `service` outlives the tap.
    explicit ServiceTap(KeyboardService& service) : ServiceTap(service, Session()) {}

    ServiceTap(KeyboardService& service, Session session);

    std::optional<Obstacle> obstacle() override { return m_service.obstacle(); }

    bool start(KeyFilter& filter) override;
    void stop() override;
    [[nodiscard]] bool isRunning() const override;

    void filterChanged() override { mirror(); }

    /// Returns whether the service is told who is in front, as far as it has to be told.
    [[nodiscard]] bool knowsWhoIsInFront() const { return !m_front || m_front->isKnown(); }

private:
    /// What the service is told. A missing part has not been told.
    struct Told {
        std::optional<std::uint32_t> switches;
        std::optional<ModifierTable> modifiers;
        std::optional<FrontApplication> front;
        bool tap = false;
    };

    [[nodiscard]] std::uint32_t switches();
    void serviceChanged();
    void mirror();

    KeyboardService& m_service;
    Session m_session;
    KeyFilter* m_filter = nullptr; ///< while the tap is on
    std::unique_ptr<FrontWatch> m_front;
    std::unique_ptr<SessionKeysWatch> m_keys;
    Told m_told;
    QObject m_context; ///< ends the connections
};

} // namespace pallistrom
