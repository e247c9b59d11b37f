// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "engine/tapCallback.h"

#include "engine/EventTapController.h"
#include "engine/KeyDecision.h"
#include "engine/Preferences.h"
#include "platform/EventPosting.h"
#include "platform/Precondition.h"

#include <limits>

namespace pallistrom {

namespace {

void postKey(CGEventSource* source, std::uint16_t keyCode, bool keyDown, CGEventFlags flags) {
    if (const OwnedCGEvent event = CGEventCreateKeyboardEvent(source, keyCode, keyDown)) {
        CGEventSetFlags(event.get(), flags);
        CGEventPost(kCGSessionEventTap, event.get());
    }
}

void postChords(std::span<const KeyChord> chords) {
    const OwnedCGEventSource source = CGEventSourceCreate(kCGEventSourceStateHIDSystemState);
    for (const KeyChord& chord : chords) {
        precondition(chord.keyCode >= 0 &&
                         chord.keyCode <= std::numeric_limits<std::uint16_t>::max(),
                     "the key code of a chord is not in 0..65535");
        const auto keyCode = static_cast<std::uint16_t>(chord.keyCode);
        postKey(source.get(), keyCode, true, chord.flags);
        postKey(source.get(), keyCode, false, chord.flags);
    }
}

} // namespace

CGEventRef
tapCallback(CGEventTapProxy /*proxy*/, CGEventType type, CGEventRef event, void* /*userInfo*/) {
    // Held for the time of the call, whatever becomes of the published one meanwhile.
    const std::shared_ptr<EventTapController> controller = tapController;
    if (!controller) {
        return event;
    }
    if (type >= kCGEventTapDisabledByTimeout) {
        controller->reEnable();
        return event;
    }
    if (type != kCGEventKeyDown && type != kCGEventKeyUp) {
        return event;
    }

    const KeyInput input{
        CGEventGetIntegerValueField(event, kCGKeyboardEventKeycode),
        CGEventGetFlags(event),
        type == kCGEventKeyDown ? KeyDirection::Down : KeyDirection::Up,
    };
    const KeyDecision decision = decide(controller->shortcuts(), input, Preferences::isEnabled);
    if (const auto* const change = std::get_if<ChangeInto>(&decision)) {
        CGEventSetIntegerValueField(event, kCGKeyboardEventKeycode, change->keyCode);
        CGEventSetFlags(event, change->flags);
        return event;
    }
    if (const auto* const drop = std::get_if<DropAfterPosting>(&decision)) {
        if (!drop->chords.empty()) {
            postChords(drop->chords);
        }
        return nullptr;
    }
    return event;
}

} // namespace pallistrom
