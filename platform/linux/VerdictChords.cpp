// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/VerdictChords.h"

namespace pallistrom {

VerdictChords::VerdictChords(const KeyVerdict& verdict, EditingStyle style)
    : m_isUntouched(verdict.isUntouched),
      m_isTheKeyItself(verdict.posted.empty() && verdict.event.has_value()) {
    if (m_isUntouched) {
        return;
    }
    const auto add = [this, style](const CGEvent& stroke) {
        const EditingKeys keys = EditingKeys::forStroke(stroke.keyCode, stroke.flags, style);
        m_chords.insert(m_chords.end(), keys.chords().begin(), keys.chords().end());
    };
    for (const CGEvent& posted : verdict.posted) {
        // Presses and releases are posted in pairs; a chord stands for the pair.
        if (posted.isDown) {
            add(posted);
        }
    }
    if (verdict.event) {
        add(*verdict.event);
    }
}

CGEventFlags VerdictChords::flagsOfAll() const {
    CGEventFlags flags = m_chords.empty() ? 0 : ~CGEventFlags{0};
    for (const LinuxChord& chord : m_chords) {
        flags &= chord.modifiers;
    }
    return flags;
}

CGEventFlags VerdictChords::flagsOfSome() const {
    CGEventFlags flags = 0;
    for (const LinuxChord& chord : m_chords) {
        flags |= chord.modifiers;
    }
    return flags & ~flagsOfAll();
}

std::optional<Replacement> VerdictChords::replacement() const {
    if (m_isUntouched) {
        return std::nullopt;
    }
    return Replacement{.chords = m_chords, .isTheKeyItself = m_isTheKeyItself};
}

} // namespace pallistrom
