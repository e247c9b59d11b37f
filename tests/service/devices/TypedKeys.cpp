// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "TypedKeys.h"

#include "service/devices/PanicChord.h"

#include <algorithm>
#include <string>

namespace pallistrom {

namespace {

constexpr auto plainKeys = std::to_array<std::uint16_t>({KEY_Q, KEY_A, KEY_X, KEY_SPACE, KEY_F4});

bool isPlain(std::uint16_t key) {
    return std::find(plainKeys.begin(), plainKeys.end(), key) != plainKeys.end();
}

std::string text(std::uint16_t key, std::int32_t value) {
    return "key " + std::to_string(key) + " to " + std::to_string(value);
}

} // namespace

void TypedKeys::given(const FakeHardware& hardware, std::span<const input_event> events) {
    KeySet& down = m_keyboards[&hardware].down;
    for (const input_event& event : events) {
        if (event.type == EV_SYN && event.code == SYN_DROPPED) {
            return;
        }
        if (event.type != EV_KEY) {
            continue;
        }
        down[event.code] = event.value != 0;
        if (event.value == 1 && isPanicChord(down)) {
            letGo();
            // None is grabbed any more, and each begins at rest when it is again.
            for (auto& [each, keyboard] : m_keyboards) {
                keyboard.down.reset();
            }
            return;
        }
        if (isPlain(event.code)) {
            move(hardware, event.code, event.value);
        }
    }
}

void TypedKeys::gone(const FakeHardware& hardware) {
    const auto found = m_keyboards.find(&hardware);
    if (found == m_keyboards.end()) {
        return;
    }
    for (const std::uint16_t key : plainKeys) {
        if (found->second.counted[key]) {
            move(hardware, key, 0);
        }
    }
    for (auto& [key, shownOn] : m_shownOn) {
        if (shownOn == &hardware) {
            if (isHeld(key)) {
                m_expected.push_back({key, 0});
            }
            shownOn = nullptr;
        }
    }
    m_keyboards.erase(found);
}

void TypedKeys::written(const FakeHardware& /*hardware*/, const input_event& event) {
    if (event.type != EV_KEY || !isPlain(event.code) || m_complaint) {
        return;
    }
    const Expected written{event.code, event.value};
    if (m_expected.empty()) {
        m_complaint = text(event.code, event.value) + " came from nowhere";
    } else if (!(m_expected.front() == written)) {
        m_complaint = text(event.code, event.value) + " came instead of " +
                      text(m_expected.front().key, m_expected.front().value);
    } else {
        m_expected.pop_front();
    }
}

void TypedKeys::letGo() {
    // Lowest code first, as plainKeys are.
    for (const std::uint16_t key : plainKeys) {
        if (isHeld(key) && m_shownOn[key] != nullptr) {
            m_expected.push_back({key, 0});
        }
    }
    for (auto& [hardware, keyboard] : m_keyboards) {
        keyboard.counted.reset();
    }
}

Complaint TypedKeys::end() const {
    if (m_complaint || m_expected.empty()) {
        return m_complaint;
    }
    return text(m_expected.front().key, m_expected.front().value) + " was lost";
}

void TypedKeys::move(const FakeHardware& hardware, std::uint16_t key, std::int32_t value) {
    KeySet& counted = m_keyboards[&hardware].counted;
    if (value == 2 || counted[key] == (value == 1)) {
        return;
    }
    const bool wasHeld = isHeld(key);
    counted[key] = value == 1;
    if (wasHeld == isHeld(key)) {
        return;
    }
    if (value == 1) {
        m_shownOn[key] = &hardware;
    }
    if (m_shownOn[key] != nullptr) {
        m_expected.push_back({key, value});
    }
}

bool TypedKeys::isHeld(std::uint16_t key) const {
    return std::any_of(m_keyboards.begin(), m_keyboards.end(), [key](const auto& each) {
        return each.second.counted[key];
    });
}

} // namespace pallistrom
