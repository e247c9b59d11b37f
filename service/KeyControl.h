// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontApplication.h"
#include "platform/linux/keys/ModifierTable.h"

namespace pallistrom {

/// All that the rest of the service can tell the keyboards.
///
/// Keyboards are grabbed while that is allowed and the event tap is switched on; otherwise their
/// keys pass untouched. Each is grabbed, and let go, once all of its keys are up: no call waits for
/// that. The switches of the shortcuts are none of this: Preferences::setEnabled().
///
/// On the service's one thread.
class KeyControl {
public:
    /// Is told what happens at the keyboards. May call the control.
    class Observer {
    public:
        Observer() = default;
        Observer(const Observer&) = delete;
        Observer& operator=(const Observer&) = delete;
        virtual ~Observer() = default;

        /// The panic chord was pressed: every keyboard has been let go, and none is grabbed until
        /// that is allowed again.
        virtual void panicked() = 0;

        /// isGrabbing() or canMakeKeyboards() may say something else than before.
        virtual void keyboardsChanged() = 0;
    };

    KeyControl() = default;
    KeyControl(const KeyControl&) = delete;
    KeyControl& operator=(const KeyControl&) = delete;
    virtual ~KeyControl() = default;

    /// `observer` outlives the control, or is replaced; null for none.
    virtual void setObserver(Observer* observer) = 0;

    /// Looks for keyboards from now on and makes each its virtual keyboard, so that the session
    /// knows those long before they carry any keys. Grabs nothing yet.
    virtual void prepare() = 0;

    /// Says whether keys may be filtered: somebody who may have that is in front of the keyboards,
    /// and wants it. This is also what AXIsProcessTrusted() answers. Keys that are held when it
    /// ends are passed on until they are up; those of the next person are never changed.
    virtual void setAllowed(bool allowed) = 0;

    /// Which keys are modifiers in the session.
    virtual void setModifierTable(const ModifierTable& table) = 0;

    virtual void setFrontApplication(FrontApplication kind) = 0;

    /// The machine is about to sleep: the session sees all keys go up.
    virtual void aboutToSleep() = 0;

    /// The machine is awake: what is held is asked of the keyboards anew.
    virtual void awake() = 0;

    /// Returns whether any keyboard is grabbed now.
    [[nodiscard]] virtual bool isGrabbing() const = 0;

    /// Returns whether virtual keyboards can be made on this machine, and so keys be filtered.
    [[nodiscard]] virtual bool canMakeKeyboards() const = 0;
};

} // namespace pallistrom
