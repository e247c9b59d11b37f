// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/Obstacle.h"
#include "platform/linux/front/FrontApplication.h"
#include "platform/linux/keyboardservice/KeyboardInterface.h"
#include "platform/linux/keys/ModifierTable.h"

#include <QObject>

#include <cstdint>
#include <optional>

namespace pallistrom {

/// The keyboard service, as the desktop program knows it: what it has said last, and what it can be
/// told. Nothing here waits for anybody. Main thread only.
class KeyboardService : public QObject {
    Q_OBJECT

public:
    /// What has become of the last request for the grant.
    struct Request {
        bool isOpen = false; ///< a person is being asked
        /// Of the last request that is closed; nothing if there is none, or if it failed.
        std::optional<KeyboardInterface::GrantAnswer> answer;

        friend bool operator==(const Request&, const Request&) = default;
    };

    /// Returns what keeps the service from filtering keys for us: what it has signalled last. The
    /// first time this asks, and the answer is a change.
    [[nodiscard]] virtual std::optional<Obstacle> obstacle() = 0;

    [[nodiscard]] virtual Request request() const = 0;

    /// Asks once more where there is no service so far: it may have been installed since.
    virtual void lookAgain() = 0;

    /// Has a person asked for the grant as soon as the service says that it is missing. One request
    /// is open at most.
    virtual void requestGrant() = 0;

    virtual void withdrawGrant() = 0;

    virtual void endPanic() = 0;

    /// Whoever switches it on tells the rest before, and all of it anew once obstacle() has been
    /// something in between: it may be another service then.
    virtual void setTap(bool on) = 0;

    /// One bit for each shortcut, in the catalogue's order, the first one lowest.
    virtual void setSwitches(std::uint32_t switches) = 0;
    virtual void setModifiers(const ModifierTable& modifiers) = 0;
    virtual void setFrontApplication(FrontApplication application) = 0;

Q_SIGNALS:
    /// obstacle() or request() has become another.
    void changed();
};

} // namespace pallistrom
