// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventFlags.h"
#include "platform/linux/keys/KeyMap.h"

#include <array>
#include <cstdint>
#include <span>

namespace pallistrom {

/// A keystroke of a Linux desktop: a key with exactly these modifiers held.
struct LinuxChord {
    EvdevCode key = 0;
    CGEventFlags modifiers = 0; ///< of shift, control, option (Alt) and command (Super)

    friend bool operator==(const LinuxChord&, const LinuxChord&) = default;
};

/// Which keys the application in front has for deleting words.
enum class EditingStyle : std::uint8_t {
    ByWord,      ///< as most have: a key that deletes a word
    BySelection, ///< only keys that select a word, which can then be deleted
};

/// The keystrokes that do on a Linux desktop what one keystroke does on the other system.
class EditingKeys {
public:
    /// Returns the desktop's own editing keys for the virtual key `keyCode` with `flags`. A
    /// keystroke that is no editing key is that key with those modifiers; a key that Linux does not
    /// have is nothing.
    static EditingKeys
    forStroke(std::int64_t keyCode, CGEventFlags flags, EditingStyle style = EditingStyle::ByWord);

    [[nodiscard]] std::span<const LinuxChord> chords() const { return {m_chords.data(), m_count}; }

private:
    static constexpr std::size_t most = 2;

    void add(LinuxChord chord);

    std::array<LinuxChord, most> m_chords{};
    std::size_t m_count = 0;
};

} // namespace pallistrom
