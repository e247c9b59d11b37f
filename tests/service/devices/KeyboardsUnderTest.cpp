// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "KeyboardsUnderTest.h"

#include "KeyScript.h"
#include "engine/EventTapController.h"
#include "engine/Preferences.h"
#include "engine/ShortcutLibrary.h"
#include "engine/tapCallback.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace pallistrom {

namespace {

constexpr Moment betweenKeys{100'000};

std::vector<TappedKey> tappedKeys() {
    std::vector<TappedKey> keys;
    for (const ShortcutDef& shortcut : ShortcutLibrary::all) {
        keys.push_back({shortcut.triggerKeyCode, shortcut.requiredFlags, shortcut.forbiddenFlags});
    }
    return keys;
}

std::string wordFor(const input_event& event) {
    switch (event.type) {
    case EV_SYN:
        return "|";
    case EV_KEY:
        return (event.value == 0 ? "-" : "+") + KeyScript::nameOf(event.code);
    case EV_MSC:
        return "scan:" + std::to_string(event.value);
    default:
        return std::to_string(event.type) + ":" + std::to_string(event.code) + ":" +
               std::to_string(event.value);
    }
}

std::int32_t valueOf(KeyAction action) {
    switch (action) {
    case KeyAction::Press:
        return 1;
    case KeyAction::Repeat:
        return 2;
    case KeyAction::Release:
        break;
    }
    return 0;
}

} // namespace

KeyboardsUnderTest::KeyboardsUnderTest()
    : keyboards(*this), m_filter(tapCallback, nullptr, tappedKeys()) {
    tapController = std::make_shared<EventTapController>(ShortcutLibrary::all);
    Preferences::registerDefaults(ShortcutLibrary::all);
    for (const ShortcutDef& shortcut : ShortcutLibrary::all) {
        Preferences::setEnabled(shortcut.id, true);
    }
}

KeyboardsUnderTest::~KeyboardsUnderTest() {
    tapController.reset();
}

void KeyboardsUnderTest::plugIn(FakeHardware& hardware) {
    hardware.isPluggedIn = true;
    if (const auto number = keyboards.add(std::make_unique<FakeKeyboard>(hardware))) {
        m_plugged.push_back({&hardware, *number});
    }
}

void KeyboardsUnderTest::sayUnplugged(FakeHardware& hardware) {
    if (const auto number = numberOf(hardware)) {
        keyboards.remove(*number);
    }
}

void KeyboardsUnderTest::sayReady(FakeHardware& hardware) {
    if (const auto number = numberOf(hardware)) {
        keyboards.tryAgain(*number);
    }
}

void KeyboardsUnderTest::serve() {
    const std::vector<Plugged> plugged = m_plugged;
    for (bool isMore = true; isMore;) {
        isMore = false;
        for (const Plugged& each : plugged) {
            if (each.hardware->isHeld && each.hardware->isReadable()) {
                serve(*each.hardware);
                isMore = true;
            }
        }
    }
}

void KeyboardsUnderTest::serve(FakeHardware& hardware) {
    if (const auto number = numberOf(hardware)) {
        keyboards.serve(*number);
    }
}

void KeyboardsUnderTest::advance(Moment time) {
    m_now += time;
    if (m_due && m_now >= *m_due) {
        m_due.reset();
        keyboards.wake();
    }
}

void KeyboardsUnderTest::advanceToTheEnd() {
    while (m_due) {
        advance(std::max(*m_due - m_now, Moment{0}));
    }
}

void KeyboardsUnderTest::switchTap(bool on) {
    keyboards.setFilter(on ? &m_filter : nullptr);
}

void KeyboardsUnderTest::allow() {
    switchTap(true);
    keyboards.setAllowed(true);
}

std::string KeyboardsUnderTest::play(FakeHardware& hardware, std::string_view script) {
    takeOutput(hardware);
    for (const KeyScript::Event& event : KeyScript::parse(script)) {
        advance(betweenKeys);
        const std::int32_t value = valueOf(event.action);
        if (!hardware.key(event.key, value)) {
            // No kernel says this, but scripts do.
            hardware.send({eventOf(EV_KEY, event.key, value)});
        }
        serve();
        advanceToTheEnd();
    }
    return takeOutput(hardware);
}

std::string KeyboardsUnderTest::takeOutput(FakeHardware& hardware) {
    std::vector<KeyScript::Event> keys;
    for (const input_event& event : std::exchange(hardware.keyboardEvents, {})) {
        if (event.type == EV_KEY) {
            keys.push_back({event.code, event.value == 0 ? KeyAction::Release : KeyAction::Press});
        }
    }
    return KeyScript::print(keys);
}

std::string KeyboardsUnderTest::takeEvents(std::vector<input_event>& events) {
    std::ostringstream text;
    const char* space = "";
    for (const input_event& event : std::exchange(events, {})) {
        text << std::exchange(space, " ") << wordFor(event);
    }
    return text.str();
}

std::optional<KeyboardNumber> KeyboardsUnderTest::numberOf(const FakeHardware& hardware) const {
    // The last one: it may have been plugged in before, under another number.
    for (auto each = m_plugged.rbegin(); each != m_plugged.rend(); ++each) {
        if (each->hardware == &hardware && hardware.isHeld) {
            return each->number;
        }
    }
    return std::nullopt;
}

} // namespace pallistrom
