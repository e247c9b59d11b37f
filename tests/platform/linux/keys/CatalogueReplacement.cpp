// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "CatalogueReplacement.h"

#include "CatalogueVerdict.h"
#include "platform/linux/keys/KeyMap.h"

namespace pallistrom {

std::optional<OwnReplacement> catalogueReplacement(const KeyScript::Event& event,
                                                   CGEventFlags flags) {
    const auto keyCode = KeyMap::virtualKeyCode(event.key);
    if (!keyCode) {
        return std::nullopt;
    }
    const VerdictChords verdict = catalogueVerdict(
        {.keyCode = *keyCode, .flags = flags, .isDown = event.action != KeyAction::Release});
    const auto replacement = verdict.replacement();
    if (!replacement) {
        return std::nullopt;
    }
    return OwnReplacement{.chords = {replacement->chords.begin(), replacement->chords.end()},
                          .isTheKeyItself = replacement->isTheKeyItself};
}

} // namespace pallistrom
