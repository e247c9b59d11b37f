// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/KeyFilter.h"

#include "platform/EventPosting.h"
#include "platform/Precondition.h"

namespace pallistrom {

class CGEventSource {};

namespace {

// Where the running callback's keystrokes go.
std::vector<CGEvent>* collecting = nullptr;

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
    delete event;
}

void CFReleaser::operator()(CGEventSource* source) const noexcept {
    delete source;
}

OwnedCGEventSource CGEventSourceCreate(CGEventSourceStateID /*state*/) {
    return OwnedCGEventSource(new CGEventSource);
}

OwnedCGEvent
CGEventCreateKeyboardEvent(CGEventSource* /*source*/, std::uint16_t keyCode, bool keyDown) {
    return OwnedCGEvent(new CGEvent{.keyCode = keyCode, .flags = 0, .isDown = keyDown});
}

void CGEventPost(CGEventTapLocation /*location*/, const CGEvent* event) {
    precondition(collecting != nullptr, "a key was posted outside a tap's callback");
    collecting->push_back(*event);
}

} // namespace pallistrom
