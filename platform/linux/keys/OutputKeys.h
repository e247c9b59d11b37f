// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/KeySet.h"

#include <cstdint>
#include <vector>

namespace pallistrom {

/// One step of what goes out to the session.
struct OutputStep {
    enum class Kind : std::uint8_t {
        Press,
        Release,
        /// Time for programs that learn of modifiers and of keys by different roads to catch up.
        /// How long is for the sender to know.
        Pause,
    };

    Kind kind = Kind::Pause;
    EvdevCode key = 0; ///< 0 for a pause

    friend bool operator==(const OutputStep&, const OutputStep&) = default;
};

/// The keys that the session has been shown as down, and the steps that show it more.
class OutputKeys {
public:
    [[nodiscard]] const KeySet& down() const { return m_down; }

    [[nodiscard]] bool isDown(EvdevCode key) const { return key < m_down.size() && m_down[key]; }

    /// Says what is down without a step.
    void assume(const KeySet& down) { m_down = down; }

    /// The following steps are added to `steps`.
    void writeTo(std::vector<OutputStep>& steps) { m_steps = &steps; }

    /// Shows a press, unless the key is down or no key of a keyboard.
    void press(EvdevCode key);

    /// Shows a release, unless the key is up.
    void release(EvdevCode key);

    /// Asks for a pause, unless nothing has gone out since the last one.
    void pause();

private:
    KeySet m_down;
    std::vector<OutputStep>* m_steps = nullptr;
};

} // namespace pallistrom
