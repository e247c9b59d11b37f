// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keys/KeyDelivery.h"

#include "platform/linux/keys/ModifierChange.h"

namespace pallistrom {

namespace {

bool opensMenus(Modifier modifier) {
    return modifier == Modifier::Option || modifier == Modifier::Command;
}

} // namespace

KeyDelivery::KeyDelivery(const ModifierTable& table, Rewritten rewritten)
    : m_rewritten(rewritten), m_physical(table) {}

void KeyDelivery::setModifierTable(const ModifierTable& table, std::vector<OutputStep>& steps) {
    m_output.writeTo(steps);
    endHeldChord(m_physical.held());
    m_physical.setTable(table);
}

void KeyDelivery::assume(const KeySet& physical, const KeySet& shown) {
    m_physical.assumeHeld(physical);
    m_output.assume(shown);
    m_held.reset();
}

void KeyDelivery::handle(EvdevCode key,
                         KeyAction action,
                         const std::optional<Replacement>& replacement,
                         Sender sender,
                         std::vector<OutputStep>& steps) {
    m_output.writeTo(steps);
    switch (action) {
    case KeyAction::Press:
        press(key, replacement);
        break;
    case KeyAction::Repeat:
        repeat(key, replacement, sender);
        break;
    case KeyAction::Release:
        release(key, replacement);
        break;
    }
}

void KeyDelivery::releaseAll(std::vector<OutputStep>& steps) {
    m_output.writeTo(steps);
    endHeldChord({});
    changeModifiersTo({});
    forEachKey(m_output.down(), [this](EvdevCode key) { m_output.release(key); });
    m_physical.assumeHeld({});
}

void KeyDelivery::press(EvdevCode key, const std::optional<Replacement>& replacement) {
    // Before anything else is shown, so that it meets the modifiers that are really held.
    endHeldChord(m_physical.held());
    m_physical.press(key);
    // What is down already is not shown again, so that it makes no difference.
    m_hidLastPress =
        replacement ? replacement->chords.empty() : m_hidLastPress && m_output.isDown(key);
    if (replacement) {
        play(key, *replacement);
    } else {
        m_output.press(key);
    }
}

void KeyDelivery::repeat(EvdevCode key,
                         const std::optional<Replacement>& replacement,
                         Sender sender) {
    const bool isHeldDown = m_held && m_held->cause == key;
    // What is down in the output is repeated by the desktop.
    if (!replacement || !m_physical.isHeld(key) || isHeldDown || sender == Sender::StillSending) {
        return;
    }
    endHeldChord(m_physical.held());
    m_output.release(key);
    play(key, *replacement);
}

void KeyDelivery::release(EvdevCode key, const std::optional<Replacement>& replacement) {
    if (!m_physical.isHeld(key)) {
        return; // Everything was let go of since it went down.
    }
    const bool isModifier = m_physical.isModifier(key);
    // First, so that a modifier that goes up is not pressed again by the end of the chord.
    m_physical.release(key);
    if (isModifier) {
        // It is still shown as down, so that its release is a step of its own, unless others change
        // with it or the chord has lifted it.
        KeySet shown = m_physical.held();
        shown[key] = m_output.isDown(key);
        if (m_held && ModifierChange::isNeeded(shown, m_physical.table(), m_output)) {
            shown.reset(key);
        }
        endHeldChord(shown);
        releaseModifier(key);
    } else {
        if (m_held && (m_held->cause == key || m_held->key == key)) {
            endHeldChord(m_physical.held());
        }
        m_output.release(key);
    }
    if (replacement && !replacement->isTheKeyItself && !replacement->chords.empty()) {
        endHeldChord(m_physical.held());
        play(key, *replacement);
    }
}

void KeyDelivery::play(EvdevCode cause, const Replacement& replacement) {
    const bool mayHold = m_rewritten == Rewritten::Held && replacement.isTheKeyItself &&
                         replacement.chords.size() == 1;
    for (const LinuxChord& chord : replacement.chords) {
        m_output.release(chord.key);
        changeModifiersTo(ModifierChange::keysFor(chord.modifiers, m_physical, m_output));
        m_output.press(chord.key);
        m_hidLastPress = false;
        if (mayHold) {
            m_held = {.cause = cause, .key = chord.key};
            return;
        }
        m_output.release(chord.key);
    }
    changeModifiersTo(m_physical.held());
}

void KeyDelivery::changeModifiersTo(const KeySet& wanted) {
    if (ModifierChange::isNeeded(wanted, m_physical.table(), m_output)) {
        m_output.pause();
        ModifierChange::apply(wanted, m_physical.table(), m_output);
        m_output.pause();
    }
}

void KeyDelivery::endHeldChord(const KeySet& modifiers) {
    if (m_held) {
        m_output.release(m_held->key);
        m_held.reset();
        changeModifiersTo(modifiers);
    }
}

void KeyDelivery::releaseModifier(EvdevCode key) {
    const ModifierTable& table = m_physical.table();
    if (m_hidLastPress && opensMenus(table.modifierOf(key)) &&
        (table.keysFor(kCGEventFlagMaskControl) & m_output.down()).none()) {
        // Somebody who saw none of what was pressed with it would take the key for tapped alone.
        KeySet rest = m_output.down();
        rest.reset(key);
        changeModifiersTo(rest);
    } else {
        m_output.release(key);
    }
}

} // namespace pallistrom
