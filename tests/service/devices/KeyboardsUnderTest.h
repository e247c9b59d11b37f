// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FakeHardware.h"
#include "platform/linux/KeyFilter.h"
#include "service/devices/Keyboards.h"

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom {

/// The keyboards of the service with all shortcuts switched on, over hardware that is not there and
/// a clock that is moved by hand. Nothing is allowed and nothing plugged in at first.
class KeyboardsUnderTest final : private KeyboardsHost {
public:
    KeyboardsUnderTest();
    KeyboardsUnderTest(const KeyboardsUnderTest&) = delete;
    KeyboardsUnderTest& operator=(const KeyboardsUnderTest&) = delete;
    ~KeyboardsUnderTest() override;

    /// `hardware` outlives this, or its being plugged in.
    void plugIn(FakeHardware& hardware);

    /// As udev says it, to whom it is news.
    void sayUnplugged(FakeHardware& hardware);

    void sayReady(FakeHardware& hardware);

    /// Has everything that has come in served, one read after the other.
    void serve();
    void serve(FakeHardware& hardware);

    void advance(Moment time);

    /// Advances until nothing waits.
    void advanceToTheEnd();

    /// Switches the event tap.
    void switchTap(bool on);

    /// Allows filtering, with the tap switched on.
    void allow();

    /// Plays a script in the notation of KeyScript, with time enough between the keys, and returns
    /// the keys that come out on the counterpart of `hardware`.
    std::string play(FakeHardware& hardware, std::string_view script);

    /// Returns the keys that have come out since the last call.
    static std::string takeOutput(FakeHardware& hardware);

    /// Returns what comes out, everything of it, in the order in which it came.
    static std::string takeEvents(std::vector<input_event>& events);

    [[nodiscard]] bool isWaiting() const { return m_due.has_value(); }

    Keyboards keyboards;
    bool canMake = true;
    int looks = 0;

private:
    struct Plugged {
        FakeHardware* hardware = nullptr;
        KeyboardNumber number = 0;
    };

    Moment now() override { return m_now; }

    void wakeAt(Moment moment) override { m_due = moment; }

    void lookForKeyboards() override { ++looks; }

    [[nodiscard]] bool canMakeKeyboards() const override { return canMake; }

    [[nodiscard]] std::optional<KeyboardNumber> numberOf(const FakeHardware& hardware) const;

    Moment m_now{1'000'000};
    std::optional<Moment> m_due;
    std::vector<Plugged> m_plugged;
    KeyFilter m_filter;
};

} // namespace pallistrom
