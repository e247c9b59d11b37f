// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/KeyFilter.h"

#include "platform/EventPosting.h"
#include "platform/Precondition.h"

#include <algorithm>
#include <array>

namespace pallistrom {

class CGEventSource {};

namespace {

// Where the running callback's keystrokes go.
std::vector<CGEvent>* collecting = nullptr;

// There is nothing to tell sources apart by.
CGEventSource theSource;

// Room for the events that a callback makes: it has one at a time, and the heap would make its keys
// wait. Only those beyond that go there. Taps run on one thread.
class EventRoom {
public:
    CGEvent* make(const CGEvent& event) {
        const auto* const free = std::find(m_isTaken.begin(), m_isTaken.end(), false);
        if (free == m_isTaken.end()) {
            return new CGEvent(event);
        }
        const auto index = static_cast<std::size_t>(free - m_isTaken.begin());
        m_isTaken.at(index) = true;
        m_events.at(index) = event;
        return &m_events.at(index);
    }

    void release(CGEvent* event) {
        for (std::size_t index = 0; index < m_events.size(); ++index) {
            if (event == &m_events.at(index)) {
                m_isTaken.at(index) = false;
                return;
            }
        }
        delete event;
    }

private:
    std::array<CGEvent, 4> m_events;
    std::array<bool, 4> m_isTaken{};
};

EventRoom& room() {
    static EventRoom theRoom;
    return theRoom;
}

} // namespace

KeyFilter::KeyFilter(CGEventTapCallBack callback,
                     void* userInfo,
                     std::span<const TappedKey> tappedKeys)
    : m_callback(callback),
      m_userInfo(userInfo),
      m_tappedKeys(tappedKeys.begin(), tappedKeys.end()) {
    constexpr std::size_t roomForAnySequence = 32;
    m_posted.reserve(roomForAnySequence);
}

KeyVerdict KeyFilter::ask(const CGEvent& event) {
    precondition(collecting == nullptr, "a callback was called from within a callback");
    m_posted.clear();
    collecting = &m_posted;
    CGEvent copy = event;
    CGEvent* const result =
        m_callback(nullptr, event.isDown ? kCGEventKeyDown : kCGEventKeyUp, &copy, m_userInfo);
    collecting = nullptr;

    KeyVerdict verdict{.posted = m_posted, .event = std::nullopt, .isUntouched = false};
    if (result != nullptr) {
        verdict.event = copy;
        verdict.isUntouched =
            m_posted.empty() && copy.keyCode == event.keyCode && copy.flags == event.flags;
    }
    return verdict;
}

bool KeyFilter::wouldTouch(const TappedKey& key) {
    return !ask({.keyCode = key.keyCode, .flags = key.required, .isDown = true}).isUntouched;
}

void CFReleaser::operator()(CGEvent* event) const noexcept {
    room().release(event);
}

void CFReleaser::operator()(CGEventSource* /*source*/) const noexcept {}

OwnedCGEventSource CGEventSourceCreate(CGEventSourceStateID /*state*/) {
    return OwnedCGEventSource(&theSource);
}

OwnedCGEvent
CGEventCreateKeyboardEvent(CGEventSource* /*source*/, std::uint16_t keyCode, bool keyDown) {
    return OwnedCGEvent(room().make({.keyCode = keyCode, .flags = 0, .isDown = keyDown}));
}

void CGEventPost(CGEventTapLocation /*location*/, const CGEvent* event) {
    precondition(collecting != nullptr, "a key was posted outside a tap's callback");
    collecting->push_back(*event);
}

} // namespace pallistrom
