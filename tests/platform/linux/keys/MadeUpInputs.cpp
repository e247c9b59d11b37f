// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "MadeUpInputs.h"

#include "CatalogueReplacement.h"
#include "platform/linux/keys/ChordFlags.h"

#include <linux/input-event-codes.h>

#include <array>

namespace pallistrom {

namespace {

using namespace ChordFlags;

constexpr auto modifierKeys = std::to_array<EvdevCode>({KEY_LEFTCTRL,
                                                        KEY_LEFTALT,
                                                        KEY_LEFTSHIFT,
                                                        KEY_LEFTMETA,
                                                        KEY_RIGHTCTRL,
                                                        KEY_RIGHTALT,
                                                        KEY_RIGHTSHIFT,
                                                        KEY_RIGHTMETA,
                                                        KEY_CAPSLOCK});

constexpr auto otherKeys = std::to_array<EvdevCode>({KEY_W,
                                                     KEY_U,
                                                     KEY_K,
                                                     KEY_D,
                                                     KEY_A,
                                                     KEY_X,
                                                     KEY_BACKSPACE,
                                                     KEY_DELETE,
                                                     KEY_HOME,
                                                     KEY_END,
                                                     KEY_LEFT,
                                                     KEY_TAB,
                                                     KEY_ENTER,
                                                     KEY_F4});

constexpr std::array modifiers{Modifier::None,
                               Modifier::Shift,
                               Modifier::Control,
                               Modifier::Option,
                               Modifier::Command,
                               Modifier::CapsLock,
                               Modifier::Level3};

/// As the options of common layouts have them.
const std::vector<DeliveryInput>& usualTables() {
    static const std::vector<DeliveryInput> tables =
        DeliveryScript::parse("table: "
                              "table:ralt=level3 "
                              "table:caps=control "
                              "table:caps=control,ctrl=capslock "
                              "table:ctrl=option,alt=control "
                              "table:alt=command,super=option "
                              "table:caps=level3,ralt=level3 "
                              "table:caps=none,rsuper=none "
                              "table:enter=control,d=level3 "
                              "table:d=option,ctrl=none,rctrl=none,enter=control "
                              "table:d=shift,enter=command,shift=none,rshift=none");
    return tables;
}

const std::vector<LinuxChord>& chordsToChooseFrom() {
    static const std::vector<LinuxChord> chords{
        {KEY_BACKSPACE, 0},
        {KEY_BACKSPACE, control},
        {KEY_HOME, shift},
        {KEY_END, control | shift},
        {KEY_DELETE, control},
        {KEY_DELETE, control | option},
        {KEY_F4, option},
        {KEY_LEFT, command},
        {KEY_LEFT, shift | option},
        {KEY_TAB, option | command},
        {KEY_A, 0},
        {KEY_W, control | shift | option | command},
    };
    return chords;
}

} // namespace

DeliverySetup MadeUpInputs::setup() {
    using Rewritten = KeyDelivery::Rewritten;
    using Lists = DeliverySetup::Lists;
    return {.table = isOneIn(2) ? table() : ModifierTable::standard(),
            .rewritten = isOneIn(4) ? Rewritten::Tapped : Rewritten::Held,
            .lists = isOneIn(2) ? Lists::OneEach : Lists::One};
}

DeliveryInput MadeUpInputs::next(const CheckedDelivery& delivery) {
    DeliveryInput input;
    if (isOneIn(100)) {
        input.kind = isOneIn(2) ? DeliveryInput::Kind::NewTable : DeliveryInput::Kind::LetGo;
        input.table = table();
        return input;
    }
    if (isOneIn(50)) {
        m_keysAreLeftAlone = !m_keysAreLeftAlone;
    }
    input.event = event();
    if (isOneIn(8)) {
        input.sender = KeyDelivery::Sender::StillSending;
    }
    if (!m_keysAreLeftAlone && !delivery.isModifier(input.event.key)) {
        input.change = change(input.event, delivery.flags());
    }
    return input;
}

ModifierTable MadeUpInputs::table() {
    if (!isOneIn(4)) {
        return oneOf(usualTables()).table;
    }
    ModifierTable table = ModifierTable::standard();
    for (std::size_t count = m_choose(modifierKeys.size() + 1); count > 0; --count) {
        table.set(oneOf(modifierKeys), oneOf(modifiers));
    }
    return table;
}

KeyScript::Event MadeUpInputs::event() {
    const bool isModifier = isOneIn(2);
    EvdevCode key = isModifier ? oneOf(modifierKeys) : oneOf(otherKeys);
    // No more fingers: one of those that are down moves.
    if (m_down.count() > m_choose(6)) {
        std::size_t rank = m_choose(m_down.count());
        key = 0;
        while (!m_down[key] || rank-- > 0) {
            ++key;
        }
    }
    KeyAction action = KeyAction::Press;
    if (m_down[key]) {
        action = isOneIn(3) ? KeyAction::Repeat : KeyAction::Release;
    }
    if (isOneIn(25)) {
        action = oneOf(std::array{KeyAction::Press, KeyAction::Repeat, KeyAction::Release});
    }
    m_down[key] = action == KeyAction::Press || (action == KeyAction::Repeat && m_down[key]);
    return {key, action};
}

std::optional<OwnReplacement> MadeUpInputs::change(const KeyScript::Event& event,
                                                   CGEventFlags flags) {
    if (isOneIn(3)) {
        return std::nullopt;
    }
    if (isOneIn(3)) {
        return catalogueReplacement(event, flags);
    }
    OwnReplacement change;
    change.isTheKeyItself = isOneIn(2);
    for (std::size_t count = oneOf(std::array<std::size_t, 5>{0, 1, 1, 1, 2}); count > 0; --count) {
        change.chords.push_back(oneOf(chordsToChooseFrom()));
    }
    return change;
}

} // namespace pallistrom
