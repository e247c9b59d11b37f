// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FakeHardware.h"

#include <algorithm>
#include <utility>

namespace pallistrom {

namespace {

// As much as the kernel keeps for a reader of a keyboard.
constexpr std::size_t roomForUnread = 64;

input_event endOfFrame() {
    return eventOf(EV_SYN, SYN_REPORT, 0);
}

} // namespace

input_event eventOf(std::uint16_t type, std::uint16_t code, std::int32_t value) {
    input_event event{};
    event.type = type;
    event.code = code;
    event.value = value;
    return event;
}

bool SeenKeys::see(std::uint16_t key, std::int32_t value) {
    if (value == 2) {
        return m_down[key];
    }
    const bool isNews = m_down[key] != (value == 1);
    m_down[key] = value == 1;
    return isNews;
}

bool FakeHardware::key(std::uint16_t code, std::int32_t value) {
    if (!isPluggedIn || down[code] == (value == 1)) {
        return false;
    }
    down[code] = value != 0;
    if (value == 2) {
        send({eventOf(EV_KEY, code, value)});
    } else {
        send({eventOf(EV_MSC, MSC_SCAN, 1000 + code), eventOf(EV_KEY, code, value)});
    }
    return true;
}

void FakeHardware::send(std::initializer_list<input_event> frame) {
    if (grabbedBy == GrabbedBy::Nobody) {
        for (const input_event& event : frame) {
            if (event.type == EV_KEY) {
                seen.see(event.code, event.value);
            }
        }
    }
    if (!isHeard || grabbedBy == GrabbedBy::Another) {
        return;
    }
    wakeUps += unread.empty() ? 1U : 0U;
    if (unread.size() + frame.size() >= roomForUnread) {
        drop();
        return;
    }
    unread.insert(unread.end(), frame);
    unread.push_back(endOfFrame());
}

void FakeHardware::drop() {
    if (isHeard && grabbedBy != GrabbedBy::Another) {
        unread = {eventOf(EV_SYN, SYN_DROPPED, 0), endOfFrame()};
    }
}

void FakeHardware::unplug() {
    isPluggedIn = false;
    down.reset();
    seen.forget();
    unread.clear();
}

bool FakeHardware::hasUnreadKey() const {
    return std::any_of(unread.begin(), unread.end(), [](const input_event& event) {
        // What was dropped may have been one.
        return event.type == EV_KEY || (event.type == EV_SYN && event.code == SYN_DROPPED);
    });
}

void FakeHardware::complain(const std::string& what) {
    if (!complaint) {
        complaint = name + ": " + what;
    }
}

void FakeHardware::write(Destination::Part part, std::span<const input_event> events) {
    const bool isKeyboard = part == Destination::Part::Keyboard;
    SeenKeys& seenKeys = isKeyboard ? seenOfKeyboard : seenOfPointer;
    for (const input_event& event : events) {
        if (event.type == EV_KEY && (event.value == 2 || !seenKeys.see(event.code, event.value))) {
            complain("key " + std::to_string(event.code) + " goes twice to " +
                     std::to_string(event.value));
        }
        if (watcher != nullptr) {
            watcher->written(*this, event);
        }
    }
    auto& all = isKeyboard ? keyboardEvents : pointerEvents;
    all.insert(all.end(), events.begin(), events.end());
}

FakeKeyboard::FakeKeyboard(FakeHardware& hardware) : m_hardware(hardware) {
    m_hardware.isHeld = true;
}

FakeKeyboard::~FakeKeyboard() {
    m_hardware.isHeld = false;
    m_hardware.isHeard = false;
    if (m_hardware.grabbedBy == FakeHardware::GrabbedBy::Service) {
        m_hardware.grabbedBy = FakeHardware::GrabbedBy::Nobody;
    }
    m_hardware.unread.clear();
    // As the kernel does for a device that ends.
    m_hardware.seenOfKeyboard.forget();
    m_hardware.seenOfPointer.forget();
}

void FakeKeyboard::setWatched(bool watched) {
    m_hardware.isHeard = watched;
    if (!watched) {
        m_hardware.unread.clear();
    }
}

KeyboardDevice::Reading FakeKeyboard::read() {
    m_hardware.given = std::exchange(m_hardware.unread, {});
    return reading(m_hardware.given.empty() && !m_hardware.isPluggedIn);
}

KeyboardDevice::Reading FakeKeyboard::reading(bool isGone) {
    if (m_hardware.watcher != nullptr) {
        if (isGone) {
            m_hardware.watcher->gone(m_hardware);
        } else if (m_hardware.grabbedBy == FakeHardware::GrabbedBy::Service) {
            m_hardware.watcher->given(m_hardware, m_hardware.given);
        }
    }
    return {.events = m_hardware.given, .isGone = isGone};
}

KeyboardDevice::Reading FakeKeyboard::catchUp(const KeySet& known) {
    m_hardware.unread.clear();
    m_hardware.given.clear();
    forEachKey(known ^ m_hardware.down, [&](EvdevCode key) {
        m_hardware.given.push_back(eventOf(EV_KEY, key, m_hardware.down[key] ? 1 : 0));
    });
    m_hardware.given.push_back(endOfFrame());
    return reading(!m_hardware.isPluggedIn);
}

std::optional<KeySet> FakeKeyboard::startOver() {
    m_hardware.unread.clear();
    return m_hardware.isPluggedIn ? std::optional(m_hardware.down) : std::nullopt;
}

KeyboardDevice::Grab FakeKeyboard::grab() {
    if (!m_hardware.isPluggedIn) {
        return Grab::Gone;
    }
    if (m_hardware.grabbedBy == FakeHardware::GrabbedBy::Another) {
        return Grab::Busy;
    }
    if (const auto key = std::exchange(m_hardware.keyInBetween, std::nullopt)) {
        m_hardware.key(*key, 1);
    }
    if (m_hardware.hasUnreadKey()) {
        return Grab::NotAtRest;
    }
    m_hardware.grabbedBy = FakeHardware::GrabbedBy::Service;
    if (m_hardware.seen.down().any()) {
        m_hardware.complain("was grabbed while the session saw a key of it down");
    }
    return Grab::Done;
}

KeyboardDevice::LetGo FakeKeyboard::letGo() {
    if (const auto key = std::exchange(m_hardware.keyInBetween, std::nullopt)) {
        m_hardware.key(*key, 1);
    }
    if (m_hardware.hasUnreadKey()) {
        return LetGo::NotAtRest;
    }
    if (m_hardware.down.any()) {
        m_hardware.complain("was let go while a key of it was down");
    }
    letGoAtOnce();
    return LetGo::Done;
}

void FakeKeyboard::letGoAtOnce() {
    m_hardware.unread.clear();
    m_hardware.grabbedBy = FakeHardware::GrabbedBy::Nobody;
}

void FakeKeyboard::write(Destination::Part part, std::span<const input_event> events) {
    m_hardware.write(part, events);
}

void FakeKeyboard::lightChanged(std::uint16_t light, std::int32_t /*value*/) {
    m_hardware.lights.push_back(light);
}

} // namespace pallistrom
