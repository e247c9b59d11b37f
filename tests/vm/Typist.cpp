// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Typist.h"

#include <linux/input-event-codes.h>

#include <algorithm>
#include <array>

namespace pallistrom::vm {

namespace {

constexpr auto letters = std::to_array<EvdevCode>(
    {KEY_Q, KEY_W, KEY_E, KEY_R, KEY_T, KEY_Y, KEY_U, KEY_I, KEY_O, KEY_P, KEY_A, KEY_S, KEY_D,
     KEY_F, KEY_G, KEY_H, KEY_J, KEY_K, KEY_L, KEY_Z, KEY_X, KEY_C, KEY_V, KEY_B, KEY_N, KEY_M});

bool isLetter(EvdevCode key) {
    return std::find(letters.begin(), letters.end(), key) != letters.end();
}

// Faster than people type, and slow enough for keys to be up at times. The kernel keeps 16 such
// letters for a seat that does not read: on a busy machine that can be most of a second.
constexpr std::chrono::milliseconds holdTime{25};

} // namespace

Typist::Typist(TestKeyboard& keyboard)
    : m_thread{[this, &keyboard] {
          run(keyboard);
      }} {}

Typist::~Typist() {
    static_cast<void>(stop());
}

std::vector<TypedKey> Typist::stop() {
    m_isTyping = false;
    if (m_thread.joinable()) {
        m_thread.join();
    }
    return m_typed;
}

void Typist::run(TestKeyboard& keyboard) {
    while (m_isTyping) {
        const EvdevCode key = letters.at(m_typed.size() % letters.size());
        m_typed.push_back(
            {.key = key, .time = std::chrono::steady_clock::now().time_since_epoch()});
        keyboard.press(key);
        std::this_thread::sleep_for(holdTime);
        keyboard.release(key);
        std::this_thread::sleep_for(holdTime);
    }
}

TypingOutcome outcomeOf(const std::vector<TypedKey>& typed, const Seat::Events& seen) {
    TypingOutcome outcome;
    std::size_t next = 0;
    for (const SeenEvent& event : seen) {
        if (event.type != EV_KEY || event.value != 1 || !isLetter(event.code)) {
            continue;
        }
        // A letter that was typed long before is no explanation: it would be the same one later.
        std::size_t index = next;
        while (index < typed.size() && typed[index].key != event.code) {
            ++index;
        }
        if (index == typed.size() || typed[index].time > event.read) {
            ++outcome.surplus;
            continue;
        }
        outcome.lost.insert(outcome.lost.end(),
                            typed.begin() + static_cast<std::ptrdiff_t>(next),
                            typed.begin() + static_cast<std::ptrdiff_t>(index));
        next = index + 1;
    }
    outcome.lost.insert(
        outcome.lost.end(), typed.begin() + static_cast<std::ptrdiff_t>(next), typed.end());
    return outcome;
}

} // namespace pallistrom::vm
