// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "MadeUpDays.h"

#include <array>
#include <utility>

namespace pallistrom {

namespace {

constexpr auto modifierKeys = std::to_array<EvdevCode>({KEY_LEFTCTRL,
                                                        KEY_LEFTALT,
                                                        KEY_LEFTSHIFT,
                                                        KEY_LEFTMETA,
                                                        KEY_RIGHTCTRL,
                                                        KEY_RIGHTALT,
                                                        KEY_RIGHTSHIFT,
                                                        KEY_CAPSLOCK});

constexpr auto otherKeys = std::to_array<EvdevCode>({KEY_W,
                                                     KEY_U,
                                                     KEY_K,
                                                     KEY_D,
                                                     KEY_Q,
                                                     KEY_A,
                                                     KEY_X,
                                                     KEY_SPACE,
                                                     KEY_F4,
                                                     KEY_BACKSPACE,
                                                     KEY_DELETE,
                                                     KEY_HOME,
                                                     KEY_ESC,
                                                     KEY_ENTER,
                                                     BTN_LEFT});

constexpr Moment longAfter{1'000'000};

} // namespace

MadeUpDays::MadeUpDays(Choose choose) : m_choose(std::move(choose)) {
    m_machine.keyboards.setObserver(this);
    for (FakeHardware& hardware : m_hardware) {
        hardware.watcher = &m_typed;
        m_machine.plugIn(hardware);
    }
    m_machine.allow();
}

MadeUpDays::~MadeUpDays() {
    m_machine.keyboards.setObserver(nullptr);
}

Complaint MadeUpDays::next() {
    FakeHardware& hardware = m_hardware.at(m_choose(m_hardware.size()));
    if (isOneIn(100)) {
        happenToSession();
    } else if (isOneIn(60)) {
        happenToHardware(hardware);
    } else if (isOneIn(30)) {
        hardware.send({eventOf(EV_REL, REL_X, 1)});
    } else {
        moveKey();
    }
    if (isOneIn(8)) {
        m_machine.advance(Moment{static_cast<std::int64_t>(m_choose(20'000))});
    }
    for (FakeHardware& each : m_hardware) {
        each.keyboardEvents.clear();
        each.pointerEvents.clear();
    }
    return complaint();
}

Complaint MadeUpDays::end() {
    for (FakeHardware& hardware : m_hardware) {
        hardware.keyInBetween.reset();
        forEachKey(hardware.down, [&](EvdevCode key) { moveKey(hardware, key, 0); });
    }
    m_machine.serve();
    m_machine.advance(longAfter);
    m_machine.advanceToTheEnd();
    for (FakeHardware& hardware : m_hardware) {
        if (hardware.seenOfKeyboard.down().any() || hardware.seenOfPointer.down().any()) {
            return hardware.name + ": a key stays down";
        }
        if (hardware.seen.down().any()) {
            return hardware.name + ": a key stays down of the keyboard itself";
        }
        const bool isGrabbed = hardware.grabbedBy == FakeHardware::GrabbedBy::Service;
        if (isGrabbed && !m_machine.keyboards.mayBeFiltered()) {
            return hardware.name + ": stays grabbed";
        }
    }
    const Complaint lost = m_typed.end();
    return lost ? lost : complaint();
}

void MadeUpDays::moveKey() {
    FakeHardware& hardware = m_hardware.at(m_choose(m_hardware.size()));
    EvdevCode key = isOneIn(3) ? modifierKeys.at(m_choose(modifierKeys.size()))
                               : otherKeys.at(m_choose(otherKeys.size()));
    // No more fingers: one of those that are down moves.
    if (hardware.down.count() > m_choose(5)) {
        std::size_t rank = m_choose(hardware.down.count());
        key = 0;
        while (!hardware.down[key] || rank-- > 0) {
            ++key;
        }
    }
    moveKey(hardware, key, !hardware.down[key] ? 1 : isOneIn(4) ? 2 : 0);
    if (!isOneIn(5)) {
        serve(hardware);
    }
}

void MadeUpDays::moveKey(FakeHardware& hardware, EvdevCode key, std::int32_t value) {
    if (hardware.key(key, value)) {
        ++m_events;
    }
}

void MadeUpDays::serve(FakeHardware& hardware) {
    if (hardware.isReadable()) {
        m_machine.serve(hardware);
    }
}

void MadeUpDays::happenToHardware(FakeHardware& hardware) {
    switch (m_choose(7)) {
    case 0:
        hardware.drop();
        break;
    case 1:
        if (hardware.isPluggedIn) {
            hardware.unplug();
            serve(hardware);
            if (hardware.isHeld) {
                m_typed.gone(hardware);
                m_machine.sayUnplugged(hardware);
            }
        }
        break;
    case 2:
        // At rest: what it does to the session otherwise is not our fault.
        if (hardware.grabbedBy == FakeHardware::GrabbedBy::Nobody && hardware.down.none()) {
            hardware.grabbedBy = FakeHardware::GrabbedBy::Another;
        }
        break;
    case 3:
        hardware.isReady = !hardware.isReady;
        m_machine.sayReady(hardware);
        break;
    case 4:
        hardware.keyInBetween = KEY_X;
        break;
    case 5:
        m_machine.serve();
        break;
    default:
        if (!hardware.isPluggedIn) {
            hardware.grabbedBy = FakeHardware::GrabbedBy::Nobody;
            m_machine.plugIn(hardware);
        } else if (hardware.grabbedBy == FakeHardware::GrabbedBy::Another) {
            hardware.grabbedBy = FakeHardware::GrabbedBy::Nobody;
            m_machine.sayReady(hardware);
        }
        break;
    }
}

void MadeUpDays::happenToSession() {
    switch (m_choose(7)) {
    case 0:
        m_machine.keyboards.setAllowed(isOneIn(2));
        break;
    case 1:
        m_machine.switchTap(isOneIn(2));
        break;
    case 2:
        m_machine.keyboards.setModifierTable(table());
        break;
    case 3:
        changeApplication();
        break;
    case 4:
        m_typed.letGo();
        m_machine.keyboards.aboutToSleep();
        break;
    case 5:
        m_machine.keyboards.awake();
        break;
    default:
        m_machine.allow();
        break;
    }
}

void MadeUpDays::changeApplication() {
    m_machine.keyboards.setFrontApplication(isOneIn(2) ? FrontApplication::KeepsItsKeys
                                                       : FrontApplication::TakesEditingKeys);
}

ModifierTable MadeUpDays::table() {
    constexpr std::array modifiers{Modifier::None,
                                   Modifier::Shift,
                                   Modifier::Control,
                                   Modifier::Option,
                                   Modifier::Command,
                                   Modifier::CapsLock,
                                   Modifier::Level3};
    ModifierTable table = ModifierTable::standard();
    for (std::size_t count = m_choose(4); count > 0; --count) {
        table.set(modifierKeys.at(m_choose(modifierKeys.size())),
                  modifiers.at(m_choose(modifiers.size())));
    }
    return table;
}

Complaint MadeUpDays::complaint() {
    for (const FakeHardware& hardware : m_hardware) {
        if (hardware.complaint) {
            return hardware.complaint;
        }
    }
    return m_typed.complaint();
}

} // namespace pallistrom
