// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/VerdictChords.h"

#include "platform/Precondition.h"

namespace pallistrom {

VerdictChords::VerdictChords(const KeyVerdict& verdict, FrontApplication front)
    : m_isUntouched(verdict.isUntouched),
      m_isTheKeyItself(verdict.posted.empty() && verdict.event.has_value()) {
    if (m_isUntouched) {
        return;
    }
    const auto style = front == FrontApplication::EditsBySelection ? EditingStyle::BySelection
                                                                   : EditingStyle::ByWord;
    for (const CGEvent& posted : verdict.posted) {
        // Presses and releases are posted in pairs; a chord stands for the pair.
        if (posted.isDown) {
            add(posted, style);
        }
    }
    if (verdict.event) {
        add(*verdict.event, style);
    }
}

void VerdictChords::add(const CGEvent& stroke, EditingStyle style) {
    const EditingKeys keys = EditingKeys::forStroke(stroke.keyCode, stroke.flags, style);
    for (const LinuxChord& chord : keys.chords()) {
        precondition(m_count < m_chords.size(), "a shortcut posts too many keystrokes");
        m_chords.at(m_count++) = chord;
    }
}

CGEventFlags VerdictChords::flagsOfAll() const {
    CGEventFlags flags = m_count == 0 ? 0 : ~CGEventFlags{0};
    for (const LinuxChord& chord : chords()) {
        flags &= chord.modifiers;
    }
    return flags;
}

CGEventFlags VerdictChords::flagsOfSome() const {
    CGEventFlags flags = 0;
    for (const LinuxChord& chord : chords()) {
        flags |= chord.modifiers;
    }
    return flags & ~flagsOfAll();
}

std::optional<Replacement> VerdictChords::replacement() const {
    if (m_isUntouched) {
        return std::nullopt;
    }
    return Replacement{.chords = chords(), .isTheKeyItself = m_isTheKeyItself};
}

} // namespace pallistrom
