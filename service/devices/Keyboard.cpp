// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/devices/Keyboard.h"

#include "platform/Log.h"
#include "service/devices/PanicChord.h"

#include <utility>

namespace pallistrom {

Keyboard::Keyboard(std::unique_ptr<KeyboardDevice> device, KeyboardNumber number, KeyStream& stream)
    : m_device(std::move(device)), m_number(number), m_stream(stream) {}

Keyboard::News Keyboard::setWanted(bool wanted) {
    if (wanted == m_isWanted) {
        return News::None;
    }
    m_isWanted = wanted;
    switch (m_state) {
    case State::Free:
        return begin();
    case State::Awaited:
    case State::Busy:
        become(State::Free);
        return News::None;
    case State::Grabbed:
        return letGoAtRest();
    case State::Gone:
        break;
    }
    return News::None;
}

Keyboard::News Keyboard::tryAgain() {
    if (m_state == State::Busy) {
        become(State::Free);
    }
    return m_state == State::Free ? begin() : News::None;
}

Keyboard::News Keyboard::serve() {
    switch (m_state) {
    case State::Awaited:
        return takeAwaited(m_device->read());
    case State::Grabbed:
        return takeGrabbed(m_device->read());
    case State::Free:
    case State::Busy:
    case State::Gone:
        break;
    }
    return News::None;
}

Keyboard::News Keyboard::streamIsIdle() {
    return m_state == State::Grabbed ? letGoAtRest() : News::None;
}

Keyboard::News Keyboard::catchUp() {
    if (m_state != State::Grabbed) {
        // Waiting looks at the device itself, and nothing else is known.
        return m_state == State::Awaited ? look() : News::None;
    }
    // Asking throws away what has come in, and nothing of that is to be lost, unless it never ends.
    constexpr int readsOfAnyKeyboard = 16;
    for (int count = 0; count < readsOfAnyKeyboard; ++count) {
        const KeyboardDevice::Reading reading = m_device->read();
        const News news = takeGrabbed(reading);
        if (news != News::None || m_state != State::Grabbed) {
            return news;
        }
        if (reading.events.empty()) {
            break;
        }
    }
    return takeGrabbed(m_device->catchUp(m_down));
}

void Keyboard::letGoAtOnce() {
    if (m_state == State::Grabbed) {
        m_device->letGoAtOnce();
        become(State::Free);
    }
}

Keyboard::News Keyboard::begin() {
    return m_isWanted && m_device->isReady() ? look() : News::None;
}

Keyboard::News Keyboard::look() {
    // Before it is asked what is down, so that no change is missed.
    become(State::Awaited);
    const auto down = m_device->startOver();
    if (!down) {
        return gone();
    }
    m_down = *down;
    return m_down.none() ? grab() : News::None;
}

Keyboard::News Keyboard::grab() {
    switch (m_device->grab()) {
    case KeyboardDevice::Grab::Done:
        become(State::Grabbed);
        // What has come in since wakes nobody any more.
        return takeGrabbed(m_device->read());
    case KeyboardDevice::Grab::NotAtRest:
        if (const auto down = m_device->startOver()) {
            // Should it be at rest again already, its next key tells.
            m_down = *down;
            become(State::Awaited);
            return News::None;
        }
        return gone();
    case KeyboardDevice::Grab::Busy:
        if (!std::exchange(m_saidBusy, true)) {
            NSLog("Pallistrom: another program holds " + m_device->description() +
                  "; it is left to that program");
        }
        become(State::Busy);
        return News::None;
    case KeyboardDevice::Grab::Gone:
        break;
    }
    return gone();
}

Keyboard::News Keyboard::takeAwaited(const KeyboardDevice::Reading& reading) {
    if (reading.isGone) {
        return gone();
    }
    for (const input_event& event : reading.events) {
        if (event.type == EV_SYN && event.code == SYN_DROPPED) {
            return look();
        }
        if (event.type == EV_KEY && event.code < KEY_CNT) {
            m_down[event.code] = event.value != 0;
        }
    }
    return m_down.none() ? grab() : News::None;
}

Keyboard::News Keyboard::takeGrabbed(const KeyboardDevice::Reading& reading) {
    if (reading.isGone) {
        return gone();
    }
    for (const input_event& event : reading.events) {
        if (event.type == EV_SYN && event.code == SYN_DROPPED) {
            // The rest of what was read is made up for as well.
            return takeGrabbed(m_device->catchUp(m_down));
        }
        if (const News news = take(event); news != News::None) {
            return news;
        }
    }
    return letGoAtRest();
}

Keyboard::News Keyboard::take(const input_event& event) {
    if (event.type == EV_KEY && event.code < KEY_CNT) {
        m_down[event.code] = event.value != 0;
        if (event.value == 1 && isPanicChord(m_down)) {
            return News::Panic;
        }
    }
    if (event.type == EV_LED) {
        m_device->lightChanged(event.code, event.value);
    } else {
        m_stream.handle(m_number, event);
    }
    return News::None;
}

Keyboard::News Keyboard::letGoAtRest() {
    if (m_isWanted || m_down.any() || m_stream.queue().isWaiting()) {
        return News::None;
    }
    m_stream.queue().flush();
    if (m_device->letGo() == KeyboardDevice::LetGo::NotAtRest) {
        return takeGrabbed(m_device->read());
    }
    become(State::Free);
    return News::None;
}

Keyboard::News Keyboard::gone() {
    m_stream.leave(m_number);
    become(State::Gone);
    return News::Unplugged;
}

void Keyboard::become(State state) {
    m_state = state;
    m_device->setWatched(state == State::Awaited || state == State::Grabbed);
}

} // namespace pallistrom
