// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "KeyScript.h"
#include "Seat.h"
#include "TestKeyboard.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace pallistrom::vm {

/// A keyboard that a service is to filter, and the session that it belongs to. No other keyboard
/// has its name.
class FilteredKeyboard {
public:
    explicit FilteredKeyboard(const TestKeyboard::Description& description);

    /// Says what a key event is to show in the end, if that is known: the next one is sent when the
    /// session has seen so many.
    struct Typed {
        KeyScript::Event event;
        std::size_t shownSoFar = 0;
    };

    /// From now on is looked at what the session sees.
    void begin() { m_seat.clear(); }

    /// Types a key event and waits until what comes of it has been seen, or should have been.
    void type(const Typed& typed);

    /// Returns which keys the session has seen since the beginning, once all have come. Those that
    /// are still held are released afterwards.
    std::string end();

    /// From beginning to end with all events at once.
    std::string typeInABurst(const std::vector<KeyScript::Event>& events);

    /// Taps a key until the session sees it come by way of the service, or not by it. Returns
    /// whether it does.
    [[nodiscard]] bool waitUntilFiltered() { return waitUntilItComes(Way::Service); }

    [[nodiscard]] bool waitUntilUnfiltered() { return waitUntilItComes(Way::Direct); }

    /// Types a key that means nothing and waits until the session has seen it: all before it has
    /// come by then. Returns that; nothing if it never comes.
    [[nodiscard]] std::optional<Seat::Events> settle();

    void unplug() { m_keyboard.reset(); }

    void plugIn();

    [[nodiscard]] TestKeyboard& keyboard() { return *m_keyboard; }

    [[nodiscard]] Seat& seat() { return m_seat; }

private:
    enum class Way : std::uint8_t { Direct, Service };

    bool waitUntilItComes(Way way);

    TestKeyboard::Description m_description;
    Seat m_seat;
    std::optional<TestKeyboard> m_keyboard;
};

} // namespace pallistrom::vm
