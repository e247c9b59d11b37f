// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FilteredKeyboard.h"

#include <linux/input-event-codes.h>

#include <algorithm>

namespace pallistrom::vm {

namespace {

// Of no meaning to anybody.
constexpr EvdevCode marker = KEY_F24;

// For what comes at once on any machine that is not stuck.
Deadline soon() {
    return Deadline{std::chrono::seconds{60}};
}

bool isMarkerGoingUp(const SeenEvent& event) {
    return event.type == EV_KEY && event.code == marker && event.value == 0;
}

bool hasMarker(const Seat::Events& events) {
    return std::any_of(events.begin(), events.end(), isMarkerGoingUp);
}

Seat::Events withoutMarker(Seat::Events events) {
    std::erase_if(events, [](const SeenEvent& event) {
        return event.type == EV_KEY && event.code == marker;
    });
    return events;
}

} // namespace

FilteredKeyboard::FilteredKeyboard(const TestKeyboard::Description& description)
    : m_description{description}, m_seat{description.name} {
    plugIn();
}

void FilteredKeyboard::plugIn() {
    m_keyboard.emplace(m_description);
}

void FilteredKeyboard::type(const Typed& typed) {
    m_keyboard->send(typed.event.key, typed.event.action);
    // What never comes is told by what has been seen in the end.
    static_cast<void>(m_seat.waitFor(
        [&typed](const Seat::Events& seen) { return keysOf(seen).size() >= typed.shownSoFar; },
        Deadline{}));
}

std::string FilteredKeyboard::end() {
    const auto seen = settle();
    // Some scripts end with keys that are held.
    m_keyboard->releaseAll();
    if (m_seat.hasMissedSome()) {
        return "the test was too slow to see all of it";
    }
    return seen ? KeyScript::print(keysOf(*seen)) : "nothing comes any more";
}

std::string FilteredKeyboard::typeInABurst(const std::vector<KeyScript::Event>& events) {
    begin();
    for (const KeyScript::Event& event : events) {
        m_keyboard->send(event.key, event.action);
    }
    return end();
}

std::optional<Seat::Events> FilteredKeyboard::settle() {
    m_keyboard->tap(marker);
    const Seat::Events seen = m_seat.waitFor(hasMarker, soon());
    if (!hasMarker(seen)) {
        return std::nullopt;
    }
    return withoutMarker(seen);
}

bool FilteredKeyboard::waitUntilItComes(Way way) {
    return waitUntil(
        [this, way] {
            m_seat.clear();
            m_keyboard->tap(marker);
            const Seat::Events seen = m_seat.waitFor(hasMarker, Deadline{});
            const auto found = std::find_if(seen.begin(), seen.end(), isMarkerGoingUp);
            const Way itsWay = found != seen.end() && found->node == m_keyboard->node()
                                   ? Way::Direct
                                   : Way::Service;
            return found != seen.end() && itsWay == way;
        },
        soon());
}

} // namespace pallistrom::vm
