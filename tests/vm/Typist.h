// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Seat.h"
#include "TestKeyboard.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <thread>
#include <vector>

namespace pallistrom::vm {

/// A key that was pressed, and when that was.
struct TypedKey {
    EvdevCode key = 0;
    std::chrono::nanoseconds time{}; ///< of the steady clock
};

/// Somebody who types letters in the order of the keyboard, over and over, on a thread of its own.
class Typist {
public:
    explicit Typist(TestKeyboard& keyboard);
    Typist(const Typist&) = delete;
    Typist& operator=(const Typist&) = delete;
    ~Typist();

    /// Stops typing, with all keys up. Returns all that was typed.
    std::vector<TypedKey> stop();

private:
    void run(TestKeyboard& keyboard);

    std::atomic<bool> m_isTyping = true;
    std::vector<TypedKey> m_typed;
    std::thread m_thread;
};

/// What came of what a typist has typed.
struct TypingOutcome {
    std::vector<TypedKey> lost;
    /// Presses that were seen though they were not typed, or not then: doubled or out of order.
    std::size_t surplus = 0;
};

[[nodiscard]] TypingOutcome outcomeOf(const std::vector<TypedKey>& typed, const Seat::Events& seen);

} // namespace pallistrom::vm
