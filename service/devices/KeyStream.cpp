// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/devices/KeyStream.h"

#include "platform/linux/KeyFilter.h"
#include "platform/linux/VerdictChords.h"
#include "service/devices/DeviceClass.h"

#include <algorithm>
#include <utility>

namespace pallistrom {

namespace {

constexpr std::size_t roomForAnySteps = 4 * KeySet().size();

constexpr Destination keyboardOf(KeyboardNumber number) {
    return {number, Destination::Part::Keyboard};
}

constexpr Destination pointerOf(KeyboardNumber number) {
    return {number, Destination::Part::Pointer};
}

std::optional<KeyAction> actionOf(std::int32_t value) {
    switch (value) {
    case 0:
        return KeyAction::Release;
    case 1:
        return KeyAction::Press;
    case 2:
        return KeyAction::Repeat;
    default:
        return std::nullopt; // The kernel knows no other.
    }
}

std::int32_t valueOf(const OutputStep& step) {
    return step.kind == OutputStep::Kind::Press ? 1 : 0;
}

} // namespace

KeyStream::KeyStream(OutputDevices& devices) : m_queue(devices) {
    m_shownOn.fill(nowhere);
    m_steps.reserve(roomForAnySteps);
}

void KeyStream::setFilter(KeyFilter* filter) {
    m_filter = filter;
    m_triggers.reset();
    if (filter == nullptr) {
        return;
    }
    for (const TappedKey& key : filter->tappedKeys()) {
        if (const auto code = KeyMap::evdevCode(key.keyCode)) {
            m_triggers.set(*code);
        }
    }
}

void KeyStream::setChangesAllowed(bool allowed) {
    m_changesAllowed = allowed;
    // Ends a chord that is held: whoever comes next is shown nothing but what is typed.
    setModifierTable(m_table);
}

void KeyStream::setModifierTable(const ModifierTable& table) {
    m_table = table;
    m_delivery.setModifierTable(table, m_steps);
    sendSteps(nowhere, std::nullopt);
    m_queue.flush();
}

void KeyStream::handle(KeyboardNumber keyboard, const input_event& event) {
    switch (event.type) {
    case EV_SYN:
        if (event.code == SYN_REPORT) {
            endFrame(keyboard);
        }
        break;
    case EV_KEY:
        if (const auto action = actionOf(event.value); action && event.code < KEY_CNT) {
            handleKeyOrButton(keyboard, event.code, *action);
        }
        break;
    case EV_MSC:
        if (event.code == MSC_SCAN) {
            sendScanCode(keyboardOf(keyboard));
            m_keyboards.at(keyboard).scanCode = event.value;
        }
        break;
    case EV_REL:
    case EV_ABS:
        sendInFrame(pointerOf(keyboard), event.type, event.code, event.value);
        break;
    case EV_REP:
        sendInFrame(keyboardOf(keyboard), event.type, event.code, event.value);
        break;
    default:
        break;
    }
}

void KeyStream::leave(KeyboardNumber keyboard) {
    forEachKey(m_keyboards.at(keyboard).held,
               [&](EvdevCode key) { handleKeyOrButton(keyboard, key, KeyAction::Release); });
    constexpr auto keys = static_cast<EvdevCode>(KeySet().size());
    for (EvdevCode key = 0; key < keys; ++key) {
        if (m_shownOn.at(key) == keyboard) {
            moveToOther(key);
        }
    }
    endFrame(keyboard);
    m_queue.flushAll();
    m_keyboards.at(keyboard) = {};
}

// A key that another keyboard holds too goes up with this one, as nobody wants to see it typed
// again. But a modifier is to last.
void KeyStream::moveToOther(EvdevCode key) {
    const KeyboardNumber from = m_shownOn.at(key);
    m_shownOn.at(key) = nowhere;
    const Modifier modifier = m_table.modifierOf(key);
    if (modifier != Modifier::None && modifier != Modifier::CapsLock) {
        m_shownOn.at(key) = holderOf(key);
        sendAlone(m_shownOn.at(key), {OutputStep::Kind::Press, key});
    }
    sendAlone(from, {OutputStep::Kind::Release, key});
}

void KeyStream::letGo() {
    m_delivery.releaseAll(m_steps);
    // What hides a lone Alt or Super is shown beside it.
    sendSteps(anyHolder(), std::nullopt);
    for (KeyboardNumber number = 0; number < mostKeyboards; ++number) {
        Keyboard& keyboard = m_keyboards.at(number);
        forEachKey(keyboard.held, [&](EvdevCode key) {
            if (isButton(key)) {
                handleButton(number, key, KeyAction::Release);
            }
        });
        keyboard.scanCode.reset();
        endFrame(number);
        keyboard.held.reset();
    }
    m_holders.fill(0);
    m_queue.flushAll();
}

void KeyStream::handleKeyOrButton(KeyboardNumber number, EvdevCode code, KeyAction action) {
    if (isButton(code)) {
        handleButton(number, code, action);
    } else {
        handleKey(number, code, action);
    }
}

void KeyStream::handleKey(KeyboardNumber number, EvdevCode key, KeyAction action) {
    Keyboard& keyboard = m_keyboards.at(number);
    std::uint8_t& holders = m_holders.at(key);
    const bool wasHeld = keyboard.held[key];
    if (action == KeyAction::Press && !wasHeld) {
        keyboard.held.set(key);
        ++holders;
    } else if (action == KeyAction::Release && wasHeld) {
        keyboard.held.reset(key);
        --holders;
    }
    const int others = holders - (keyboard.held[key] ? 1 : 0);
    if (others == 0 && (wasHeld || action == KeyAction::Press)) {
        deliver(number, key, action);
    }
    keyboard.scanCode.reset();
}

void KeyStream::handleButton(KeyboardNumber number, EvdevCode button, KeyAction action) {
    const bool isDown = action == KeyAction::Press;
    // The kernel repeats buttons of keyboards as well, and nobody wants to know.
    if (action == KeyAction::Repeat || m_keyboards.at(number).held[button] == isDown) {
        m_keyboards.at(number).scanCode.reset();
        return;
    }
    m_keyboards.at(number).held[button] = isDown;
    sendScanCode(pointerOf(number));
    sendInFrame(pointerOf(number), EV_KEY, button, isDown ? 1 : 0);
}

void KeyStream::deliver(KeyboardNumber number, EvdevCode key, KeyAction action) {
    const auto sender =
        m_queue.isWaiting() ? KeyDelivery::Sender::StillSending : KeyDelivery::Sender::Idle;
    const bool mayChange = m_triggers[key] && m_changesAllowed &&
                           m_front != FrontApplication::KeepsItsKeys && !m_delivery.isModifier(key);
    const auto keyCode = mayChange ? KeyMap::virtualKeyCode(key) : std::nullopt;
    if (keyCode) {
        const VerdictChords verdict(m_filter->ask({.keyCode = *keyCode,
                                                   .flags = m_delivery.flags(),
                                                   .isDown = action != KeyAction::Release}),
                                    m_front);
        m_delivery.handle(key, action, verdict.replacement(), sender, m_steps);
    } else {
        m_delivery.handle(key, action, std::nullopt, sender, m_steps);
    }
    sendSteps(
        number,
        OutputStep{action == KeyAction::Press ? OutputStep::Kind::Press : OutputStep::Kind::Release,
                   key});
}

void KeyStream::endFrame(KeyboardNumber number) {
    sendScanCode(keyboardOf(number));
    closeFrame(keyboardOf(number));
    closeFrame(pointerOf(number));
}

void KeyStream::sendSteps(KeyboardNumber cause, const std::optional<OutputStep>& own) {
    if (m_steps.size() == m_sentSteps) {
        return;
    }
    if (m_steps.size() == m_sentSteps + 1 && m_steps.back() == own) {
        sendOwn(cause, *own);
    } else {
        for (std::size_t at = m_sentSteps; at < m_steps.size(); ++at) {
            sendStep(cause, m_steps[at]);
        }
    }
    m_steps.front() = m_steps.back();
    m_steps.resize(1);
    m_sentSteps = 1;
}

void KeyStream::sendOwn(KeyboardNumber cause, const OutputStep& step) {
    const KeyboardNumber number = place(step, cause);
    if (number == cause) {
        sendScanCode(keyboardOf(cause));
        sendInFrame(keyboardOf(cause), EV_KEY, step.key, valueOf(step));
    } else {
        sendAlone(number, step);
    }
}

void KeyStream::sendStep(KeyboardNumber cause, const OutputStep& step) {
    if (step.kind == OutputStep::Kind::Pause) {
        m_queue.pause();
    } else {
        sendAlone(place(step, cause), step);
    }
}

void KeyStream::sendAlone(KeyboardNumber number, const OutputStep& step) {
    if (number != nowhere) {
        closeFrame(keyboardOf(number));
        sendInFrame(keyboardOf(number), EV_KEY, step.key, valueOf(step));
        closeFrame(keyboardOf(number));
    }
}

void KeyStream::sendInFrame(Destination destination,
                            std::uint16_t type,
                            std::uint16_t code,
                            std::int32_t value) {
    isFrameOpen(destination) = true;
    m_queue.add(destination, type, code, value);
}

void KeyStream::sendScanCode(Destination destination) {
    std::optional<std::int32_t>& scanCode = m_keyboards.at(destination.keyboard).scanCode;
    if (scanCode) {
        sendInFrame(destination, EV_MSC, MSC_SCAN, *scanCode);
        scanCode.reset();
    }
}

void KeyStream::closeFrame(Destination destination) {
    if (std::exchange(isFrameOpen(destination), false)) {
        m_queue.add(destination, EV_SYN, SYN_REPORT, 0);
    }
}

bool& KeyStream::isFrameOpen(Destination destination) {
    Keyboard& keyboard = m_keyboards.at(destination.keyboard);
    return destination.part == Destination::Part::Keyboard ? keyboard.hasOpenFrame
                                                           : keyboard.hasOpenPointerFrame;
}

KeyboardNumber KeyStream::place(const OutputStep& step, KeyboardNumber cause) {
    KeyboardNumber& shownOn = m_shownOn.at(step.key);
    if (step.kind == OutputStep::Kind::Release) {
        return std::exchange(shownOn, nowhere);
    }
    // A key that is held and comes back is its own keyboard's; that of the cause may not have it.
    const bool isHeldByOthers =
        m_holders.at(step.key) > 0 && (cause == nowhere || !m_keyboards.at(cause).held[step.key]);
    shownOn = isHeldByOthers ? holderOf(step.key) : cause;
    return shownOn;
}

KeyboardNumber KeyStream::anyHolder() const {
    const auto* const found =
        std::find_if(m_keyboards.begin(), m_keyboards.end(), [](const Keyboard& keyboard) {
            return keyboard.held.any();
        });
    return static_cast<KeyboardNumber>(found - m_keyboards.begin());
}

KeyboardNumber KeyStream::holderOf(EvdevCode key) const {
    KeyboardNumber number = 0;
    while (number < mostKeyboards && !m_keyboards.at(number).held[key]) {
        ++number;
    }
    return number;
}

} // namespace pallistrom
