// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "CatalogueVerdict.h"

#include "engine/KeyDecision.h"
#include "engine/ShortcutLibrary.h"

namespace pallistrom {

VerdictChords catalogueVerdict(const CGEvent& event) {
    const auto decision =
        decide(ShortcutLibrary::all,
               {event.keyCode, event.flags, event.isDown ? KeyDirection::Down : KeyDirection::Up},
               [](std::string_view) { return true; });
    if (const auto* const change = std::get_if<ChangeInto>(&decision)) {
        return VerdictChords({.posted = {},
                              .event = CGEvent{change->keyCode, change->flags, event.isDown},
                              .isUntouched = false});
    }
    if (const auto* const drop = std::get_if<DropAfterPosting>(&decision)) {
        std::vector<CGEvent> posted;
        for (const KeyChord& chord : drop->chords) {
            posted.push_back({chord.keyCode, chord.flags, true});
            posted.push_back({chord.keyCode, chord.flags, false});
        }
        return VerdictChords({.posted = posted, .event = std::nullopt, .isUntouched = false});
    }
    return VerdictChords({.posted = {}, .event = event, .isUntouched = true});
}

} // namespace pallistrom
