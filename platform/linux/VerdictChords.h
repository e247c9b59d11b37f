// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/KeyFilter.h"
#include "platform/linux/keys/KeyDelivery.h"

#include <optional>
#include <vector>

namespace pallistrom {

/// A verdict on a key event, in the keystrokes of a Linux desktop.
class VerdictChords {
public:
    explicit VerdictChords(const KeyVerdict& verdict, EditingStyle style = EditingStyle::ByWord);

    /// Returns what goes out in place of the event; nothing if the event goes out itself. Valid as
    /// long as this object.
    [[nodiscard]] std::optional<Replacement> replacement() const;

    /// Returns the modifiers that every one of the keystrokes needs.
    [[nodiscard]] CGEventFlags flagsOfAll() const;

    /// Returns the modifiers that some keystrokes need and others do not.
    [[nodiscard]] CGEventFlags flagsOfSome() const;

private:
    bool m_isUntouched;
    bool m_isTheKeyItself;
    std::vector<LinuxChord> m_chords;
};

} // namespace pallistrom
