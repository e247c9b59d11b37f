// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/devices/Keyboards.h"

#include "platform/Log.h"

#include <algorithm>
#include <utility>

namespace pallistrom {

template<typename Call>
void Keyboards::forEach(const Call& call) {
    for (KeyboardNumber number = 0; number < mostKeyboards; ++number) {
        if (const auto& keyboard = m_keyboards.at(number)) {
            follow(number, call(*keyboard));
        }
    }
}

Keyboards::Keyboards(KeyboardsHost& host) : m_host(host), m_stream(*this) {
    FilteredKeys::current() = this;
}

Keyboards::~Keyboards() {
    m_stream.letGo();
    FilteredKeys::current() = nullptr;
}

std::optional<KeyboardNumber> Keyboards::add(std::unique_ptr<KeyboardDevice> device) {
    auto* const free = std::find(m_keyboards.begin(), m_keyboards.end(), nullptr);
    if (free == m_keyboards.end()) {
        NSLog("Pallistrom: there are too many keyboards; " + device->description() +
              " is left alone");
        return std::nullopt;
    }
    NSLog("Pallistrom: found " + device->description());
    beginTurn();
    const auto number = static_cast<KeyboardNumber>(free - m_keyboards.begin());
    *free = std::make_unique<Keyboard>(std::move(device), number, m_stream);
    follow(number, (*free)->setWanted(m_isAllowed && m_hasFilter));
    endTurn();
    return number;
}

void Keyboards::remove(KeyboardNumber number) {
    beginTurn();
    if (m_keyboards.at(number)) {
        follow(number, Keyboard::News::Unplugged);
    }
    endTurn();
}

void Keyboards::serve(KeyboardNumber number) {
    beginTurn();
    if (const auto& keyboard = m_keyboards.at(number)) {
        follow(number, keyboard->serve());
    }
    endTurn();
}

void Keyboards::tryAgain(KeyboardNumber number) {
    beginTurn();
    if (const auto& keyboard = m_keyboards.at(number)) {
        follow(number, keyboard->tryAgain());
    }
    endTurn();
}

void Keyboards::wake() {
    beginTurn();
    m_stream.queue().flush();
    if (!m_stream.queue().isWaiting()) {
        forEach([](Keyboard& keyboard) { return keyboard.streamIsIdle(); });
    }
    endTurn();
}

void Keyboards::prepare() {
    m_host.lookForKeyboards();
}

void Keyboards::setAllowed(bool allowed) {
    m_isAllowed = allowed;
    wantOrNot();
}

void Keyboards::setFilter(KeyFilter* filter) {
    m_hasFilter = filter != nullptr;
    m_stream.setFilter(filter);
    wantOrNot();
}

void Keyboards::setModifierTable(const ModifierTable& table) {
    beginTurn();
    m_stream.setModifierTable(table);
    endTurn();
}

void Keyboards::setFrontApplication(FrontApplication kind) {
    m_stream.setFrontApplication(kind);
}

void Keyboards::aboutToSleep() {
    beginTurn();
    m_stream.letGo();
    endTurn();
}

void Keyboards::awake() {
    beginTurn();
    forEach([](Keyboard& keyboard) { return keyboard.catchUp(); });
    endTurn();
}

bool Keyboards::isGrabbing() const {
    return std::any_of(m_keyboards.begin(), m_keyboards.end(), [](const auto& keyboard) {
        return keyboard && keyboard->isGrabbed();
    });
}

bool Keyboards::canMakeKeyboards() const {
    return m_host.canMakeKeyboards();
}

void Keyboards::write(Destination destination, std::span<const input_event> events) {
    if (const auto& keyboard = m_keyboards.at(destination.keyboard)) {
        keyboard->device().write(destination.part, events);
    }
}

void Keyboards::beginTurn() {
    m_stream.queue().setNow(m_host.now());
}

void Keyboards::endTurn() {
    m_stream.queue().flush();
    if (const auto due = m_stream.queue().due()) {
        m_host.wakeAt(*due);
    }
    const bool isGrabbingNow = isGrabbing();
    if (std::exchange(m_toldGrabbing, isGrabbingNow) != isGrabbingNow && m_observer != nullptr) {
        m_observer->keyboardsChanged();
    }
}

void Keyboards::wantOrNot() {
    beginTurn();
    const bool wanted = m_isAllowed && m_hasFilter;
    m_stream.setChangesAllowed(wanted);
    if (wanted) {
        m_host.lookForKeyboards();
    }
    forEach([wanted](Keyboard& keyboard) { return keyboard.setWanted(wanted); });
    endTurn();
}

void Keyboards::follow(KeyboardNumber number, Keyboard::News news) {
    switch (news) {
    case Keyboard::News::None:
        break;
    case Keyboard::News::Unplugged:
        m_stream.leave(number);
        m_keyboards.at(number).reset();
        break;
    case Keyboard::News::Panic:
        panic();
        break;
    }
}

void Keyboards::panic() {
    m_isAllowed = false;
    m_stream.setChangesAllowed(false);
    m_stream.letGo();
    for (const auto& keyboard : m_keyboards) {
        if (keyboard) {
            keyboard->letGoAtOnce();
            keyboard->setWanted(false);
        }
    }
    NSLog("Pallistrom: the panic chord was pressed; all keyboards are let go");
    if (m_observer != nullptr) {
        m_observer->panicked();
    }
}

} // namespace pallistrom
