// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "DeliverySituation.h"

namespace pallistrom {

namespace {

/// What an event of a key is to a delivery in this situation.
class KeyEventReader {
public:
    KeyEventReader(const DeliveryInput& input,
                   const DeliverySituation& now,
                   const ModifierSets& modifiers)
        : m_input(input),
          m_now(now),
          m_modifiers(modifiers),
          m_wasHeld(now.held[input.event.key]) {}

    /// Whether anything may come of it: what a key that is not down does is nobody's business, and
    /// what is down in the output is repeated by the desktop.
    [[nodiscard]] bool counts() const {
        switch (m_input.event.action) {
        case KeyAction::Press:
            return true;
        case KeyAction::Repeat:
            return m_wasHeld && m_input.change && !isCause() &&
                   m_input.sender == KeyDelivery::Sender::Idle;
        case KeyAction::Release:
            break;
        }
        return m_wasHeld;
    }

    /// A rewritten release is that of whatever was shown for the press.
    [[nodiscard]] bool playsChords() const {
        return counts() && m_input.change && !m_input.change->chords.empty() &&
               !(isRelease() && m_input.change->isTheKeyItself);
    }

    [[nodiscard]] bool endsChord() const {
        return m_now.chord && counts() &&
               (!isRelease() || isModifier() || isCause() || key() == m_now.chord->chord.key ||
                playsChords());
    }

    /// Whether a tap of it alone is not what was typed.
    [[nodiscard]] bool mayBeMasked() const {
        return isRelease() && counts() && m_modifiers.openers()[key()] &&
               (m_now.typedLast != key() || m_now.toldLast != key());
    }

    [[nodiscard]] bool isRelease() const { return m_input.event.action == KeyAction::Release; }

    [[nodiscard]] bool isPress() const { return m_input.event.action == KeyAction::Press; }

    [[nodiscard]] bool wasHeld() const { return m_wasHeld; }

private:
    [[nodiscard]] EvdevCode key() const { return m_input.event.key; }

    [[nodiscard]] bool isModifier() const { return m_modifiers.all()[key()]; }

    [[nodiscard]] bool isCause() const { return m_now.chord && m_now.chord->cause == key(); }

    const DeliveryInput& m_input;
    const DeliverySituation& m_now;
    const ModifierSets& m_modifiers;
    bool m_wasHeld;
};

DeliveryExpectation expectationOfKey(const DeliveryInput& input,
                                     const DeliverySituation& now,
                                     const ModifierSets& modifiers,
                                     KeyDelivery::Rewritten rewritten) {
    const KeyEventReader event(input, now, modifiers);
    const EvdevCode key = input.event.key;
    DeliveryExpectation result;
    result.held = now.held;
    result.chord = now.chord;
    if (event.isPress()) {
        result.held.set(key);
    } else if (event.isRelease()) {
        result.held.reset(key);
    }
    if (!event.counts()) {
        return result;
    }
    if (event.isPress() && !input.change) {
        result.own = OutputStep{OutputStep::Kind::Press, key};
        result.isDue = !event.wasHeld();
    } else if (!event.isPress() && now.shown[key]) {
        // If it is due, what is down in the end says so.
        result.own = OutputStep{OutputStep::Kind::Release, key};
    }
    if (event.endsChord()) {
        result.mayGoUp.set(now.chord->chord.key);
        result.chord.reset();
    }
    if (event.playsChords()) {
        result.chords = input.change->chords;
        const bool mayHold = rewritten == KeyDelivery::Rewritten::Held &&
                             input.change->isTheKeyItself && result.chords.size() == 1;
        if (mayHold) {
            result.chord = ShownChord{.cause = key, .chord = result.chords.front()};
        }
    }
    const bool mayShowStrangers = input.change && now.strangers.any();
    result.mayChangeModifiers =
        event.endsChord() || event.playsChords() || event.mayBeMasked() || mayShowStrangers;
    return result;
}

} // namespace

DeliveryExpectation expectationOf(const DeliveryInput& input,
                                  const DeliverySituation& now,
                                  const ModifierSets& modifiers,
                                  KeyDelivery::Rewritten rewritten) {
    DeliveryExpectation result;
    switch (input.kind) {
    case DeliveryInput::Kind::Key:
        result = expectationOfKey(input, now, modifiers, rewritten);
        break;
    case DeliveryInput::Kind::NewTable:
        result.held = now.held;
        result.mayChangeModifiers = now.chord.has_value();
        if (now.chord) {
            result.mayGoUp.set(now.chord->chord.key);
        }
        break;
    case DeliveryInput::Kind::LetGo:
        result.mayGoUp = now.shown;
        result.mayChangeModifiers = true;
        break;
    case DeliveryInput::Kind::TakeOver:
        result.held = input.down;
        break;
    }
    return result;
}

} // namespace pallistrom
