// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/KeyFilter.h"
#include "platform/linux/front/FrontApplication.h"
#include "platform/linux/keys/KeyDelivery.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>

namespace pallistrom {

/// A verdict on a key event, in the keystrokes of a Linux desktop. Allocates nothing.
class VerdictChords {
public:
    /// The most keystrokes that can stand in place of one key.
    static constexpr std::size_t most = 32;

    /// `front` is the application that takes the keys.
    explicit VerdictChords(const KeyVerdict& verdict,
                           FrontApplication front = FrontApplication::TakesEditingKeys);

    /// Returns what goes out in place of the event; nothing if the event goes out itself. Valid as
    /// long as this object.
    [[nodiscard]] std::optional<Replacement> replacement() const;

    /// Returns the modifiers that every one of the keystrokes needs.
    [[nodiscard]] CGEventFlags flagsOfAll() const;

    /// Returns the modifiers that some keystrokes need and others do not.
    [[nodiscard]] CGEventFlags flagsOfSome() const;

private:
    void add(const CGEvent& stroke, EditingStyle style);

    [[nodiscard]] std::span<const LinuxChord> chords() const { return {m_chords.data(), m_count}; }

    bool m_isUntouched;
    bool m_isTheKeyItself;
    std::array<LinuxChord, most> m_chords;
    std::size_t m_count = 0;
};

} // namespace pallistrom
