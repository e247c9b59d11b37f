// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ScriptedDecisions.h"

#include "platform/EventPosting.h"
#include "platform/linux/keys/EditingKeys.h"

#include <linux/input-event-codes.h>

#include <algorithm>
#include <optional>
#include <span>

namespace pallistrom::vm {

namespace {

struct Stroke {
    std::int64_t keyCode = 0;
    CGEventFlags flags = 0;
};

bool areEqual(std::span<const LinuxChord> a, std::span<const LinuxChord> b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end());
}

// Returns the keystroke of the engine that goes out as `chords`.
std::optional<Stroke> strokeFor(std::span<const LinuxChord> chords) {
    std::vector<Stroke> candidates;
    for (const auto& [key, keyCode] : KeyMap::all()) {
        if (key == chords.front().key) {
            candidates.push_back({keyCode, chords.front().modifiers});
        }
        // Those that are several on Linux.
        if (key == KEY_BACKSPACE || key == KEY_DELETE) {
            candidates.push_back({keyCode, kCGEventFlagMaskCommand});
        }
    }
    const auto found =
        std::find_if(candidates.begin(), candidates.end(), [chords](const Stroke& candidate) {
            const auto keys = EditingKeys::forStroke(candidate.keyCode, candidate.flags);
            return areEqual(keys.chords(), chords);
        });
    return found == candidates.end() ? std::nullopt : std::optional{*found};
}

void post(const Stroke& stroke) {
    for (const bool isDown : {true, false}) {
        const auto event =
            CGEventCreateKeyboardEvent(nullptr, static_cast<std::uint16_t>(stroke.keyCode), isDown);
        CGEventSetFlags(event.get(), stroke.flags);
        CGEventPost(kCGSessionEventTap, event.get());
    }
}

} // namespace

bool ScriptedDecisions::canDecide(const OwnReplacement& change) {
    if (change.isTheKeyItself) {
        return strokeFor(change.chords).has_value();
    }
    return std::all_of(change.chords.begin(), change.chords.end(), [](const LinuxChord& chord) {
        return strokeFor({&chord, 1}).has_value();
    });
}

void ScriptedDecisions::use(const std::vector<DeliveryInput>& inputs) {
    m_decisions.assign(inputs.begin(), inputs.end());
}

CGEventRef ScriptedDecisions::callback(CGEventTapProxy /*proxy*/,
                                       CGEventType type,
                                       CGEventRef event,
                                       void* userInfo) {
    return static_cast<ScriptedDecisions*>(userInfo)->decide(event, type == kCGEventKeyDown);
}

CGEventRef ScriptedDecisions::decide(CGEventRef event, bool isDown) {
    const auto key = KeyMap::evdevCode(CGEventGetIntegerValueField(event, kCGKeyboardEventKeycode));
    const auto found = std::find_if(
        m_decisions.begin(), m_decisions.end(), [key, isDown](const DeliveryInput& input) {
            return input.event.key == key && (input.event.action != KeyAction::Release) == isDown;
        });
    if (found == m_decisions.end()) {
        return event;
    }
    const DeliveryInput decision = *found;
    // What the script says of earlier events will not be asked any more.
    m_decisions.erase(m_decisions.begin(), found + 1);
    if (!decision.change) {
        return event;
    }
    if (decision.change->isTheKeyItself) {
        const auto stroke = strokeFor(decision.change->chords);
        CGEventSetIntegerValueField(event, kCGKeyboardEventKeycode, stroke->keyCode);
        CGEventSetFlags(event, stroke->flags);
        return event;
    }
    for (const LinuxChord& chord : decision.change->chords) {
        post(*strokeFor({&chord, 1}));
    }
    return nullptr;
}

} // namespace pallistrom::vm
