// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Tap.h"

#include "platform/Log.h"
#include "platform/linux/keys/KeyDelivery.h"
#include "platform/linux/keys/KeyMap.h"
#include "platform/linux/x11/X11KeyGrabs.h"
#include "platform/linux/x11/X11ServerGrab.h"
#include "platform/linux/x11/X11Session.h"

#include <string>

namespace pallistrom {

namespace {

KeySet pressedAndNotReleased(const std::vector<OutputStep>& steps) {
    KeySet keys;
    for (const OutputStep& step : steps) {
        if (step.kind != OutputStep::Kind::Pause) {
            keys[step.key] = step.kind == OutputStep::Kind::Press;
        }
    }
    return keys;
}

} // namespace

std::optional<Obstacle> X11Tap::obstacle() {
    if (!m_connection || !m_connection->isAlive()) {
        m_session.reset();
        m_connection = X11Connection::open();
        // Asked once: a connection that is no use is kept, so that nobody is bothered again.
        m_obstacle = findObstacle();
    }
    return m_obstacle;
}

std::optional<Obstacle> X11Tap::findObstacle() const {
    if (!m_connection) {
        return X11Connection::isForbidden() ? Obstacle::WaylandSession : Obstacle::NoDisplay;
    }
    if (X11Session::isOfWayland(*m_connection)) {
        return Obstacle::WaylandSession;
    }
    const bool hasAll =
        m_connection->hasExtension("XTEST") && m_connection->hasExtension("XInputExtension");
    return hasAll ? std::nullopt : std::optional(Obstacle::NoXTest);
}

bool X11Tap::start(KeyFilter& filter) {
    if (!canRun()) {
        return false;
    }
    m_filter = &filter;
    m_session = std::make_unique<Session>(*m_connection, m_kindOf);
    m_session->front.take(m_session->frontWindow.report());
    // What a run that was killed has left.
    m_session->sender.release(m_session->watch.heldKeys().forgotten,
                              m_session->keyboard.positions());
    grabKeys();
    return isRunning();
}

void X11Tap::stop() {
    if (isRunning()) {
        X11KeyGrabs(*m_connection).clear();
        m_session->watch.stop();
        m_connection->sync();
    }
    m_session.reset();
    // The server would go on telling of all that the session has asked for, and nobody would read.
    m_connection.reset();
    m_filter = nullptr;
}

bool X11Tap::isRunning() const {
    return m_filter != nullptr && m_session && m_connection && m_connection->isAlive();
}

std::optional<int> X11Tap::descriptor() const {
    return m_connection->descriptor();
}

void X11Tap::serve() {
    bool hasMore = true;
    while (hasMore && isRunning()) {
        Changes changes;
        while (const auto event = nextEvent()) {
            handle(*event, changes);
        }
        // What it asks of the server may bring further events along.
        hasMore = isRunning() && follow(changes);
    }
    if (m_connection) {
        xcb_flush(m_connection->get());
    }
}

// None once what was served has stopped the tap.
XcbOwned<xcb_generic_event_t> X11Tap::nextEvent() const {
    return XcbOwned<xcb_generic_event_t>(isRunning() ? xcb_poll_for_event(m_connection->get())
                                                     : nullptr);
}

void X11Tap::filterChanged() {
    grabKeys();
    serve();
}

FrontApplication X11Tap::inFront() const {
    return m_session->front.application().value_or(FrontApplication::TakesEditingKeys);
}

void X11Tap::grabKeys() {
    X11KeyGrabs(*m_connection).clear();
    if (inFront() == FrontApplication::KeepsItsKeys) {
        return;
    }
    for (const TappedKey& key : m_filter->tappedKeys()) {
        if (m_filter->wouldTouch(key)) {
            grabKey(key);
        }
    }
}

void X11Tap::grabKey(const TappedKey& key) {
    const auto code = KeyMap::evdevCode(key.keyCode);
    const auto keycode = code ? m_session->keyboard.positions().keycode(*code) : std::nullopt;
    if (!keycode) {
        return;
    }
    const auto states = m_session->keyboard.statesWith(key.required, key.forbidden);
    if (X11KeyGrabs(*m_connection).add(*keycode, states)) {
        m_refusedKeys.erase(key.keyCode);
    } else if (m_connection->isAlive() && m_refusedKeys.insert(key.keyCode).second) {
        NSLog("Pallistrom: another program owns the shortcut on virtual key " +
              std::to_string(key.keyCode) + "; it is left to that program");
    }
}

void X11Tap::handle(const xcb_generic_event_t& event, Changes& changes) {
    if (m_session->sender.hasSent(event)) {
        return; // A key of ours met the grab of the next repeat, which fires in its place.
    }
    if (m_session->watch.handle(event)) {
        return;
    }
    // Events that another program has made up carry a further bit, and so are none of these.
    if (event.response_type == XCB_KEY_PRESS) {
        pressed(reinterpret_cast<const xcb_key_press_event_t&>(event));
    } else if (m_session->keyboard.isChange(event)) {
        changes.keyboard = true;
    } else if (m_session->devices.isChange(event)) {
        changes.devices = true;
    } else if (m_session->frontWindow.isChange(event)) {
        changes.frontWindow = true;
    }
}

bool X11Tap::follow(const Changes& changes) {
    const FrontApplication wasInFront = inFront();
    bool changesGrabs = false;
    if (changes.devices) {
        m_session->devices.refresh();
    }
    if (changes.keyboard) {
        X11Keyboard keyboard(*m_connection);
        changesGrabs = !(keyboard == m_session->keyboard);
        m_session->keyboard = keyboard;
    }
    if (changes.frontWindow) {
        m_session->frontWindow.refresh();
        m_session->front.take(m_session->frontWindow.report());
        changesGrabs = changesGrabs || inFront() != wasInFront;
    }
    if (changesGrabs) {
        grabKeys();
    }
    return changes.devices || changes.keyboard || changes.frontWindow;
}

void X11Tap::pressed(const xcb_key_press_event_t& event) {
    // What is typed while the grab is active comes to us instead of to the window in front.
    xcb_ungrab_keyboard(m_connection->get(), XCB_CURRENT_TIME);

    const X11KeyPositions& positions = m_session->keyboard.positions();
    const auto key = positions.evdevCode(event.detail);
    const auto chords = key ? chordsFor(*key, event) : std::nullopt;
    if (chords && m_session->clock.since(event.time) > m_patience) {
        return;
    }
    const X11HeldKeys held = m_session->watch.heldKeys();
    m_session->sender.release(held.forgotten, positions);
    if (key && m_session->watch.hasFired(*key) && !held.physical[*key]) {
        return; // A repeat that we come to late: who held the key has let go of it.
    }
    if (chords) {
        deliver(*key, *chords, held);
        return;
    }
    // It came to us because the grab of an earlier key was still active, or because a switch or the
    // window in front has changed since. It is not ours.
    xcb_ungrab_keyboard(m_connection->get(), XCB_CURRENT_TIME);
    m_session->sender.replay(event.detail, key && held.shown[*key]);
}

std::optional<VerdictChords> X11Tap::chordsFor(EvdevCode key,
                                               const xcb_key_press_event_t& event) const {
    const auto keyCode = KeyMap::virtualKeyCode(key);
    const FrontApplication front = inFront();
    if (!keyCode || front == FrontApplication::KeepsItsKeys) {
        return std::nullopt;
    }
    const KeyVerdict verdict = m_filter->ask(
        {.keyCode = *keyCode, .flags = m_session->keyboard.flagsOf(event.state), .isDown = true});
    if (verdict.isUntouched) {
        return std::nullopt;
    }
    return VerdictChords(verdict, front);
}

// Between our question which keys are held and what we make of the answer, people and programs let
// go of keys. So what a chord needs is not left to the fingers: another key of the modifier is
// pressed, or, where all are held or the modifier changes from one chord to the next, the key that
// seems to be down already, which the server ignores if it is. And the question is asked a second
// time along with the chord, as of its very moment: only what was held then stays down.
void X11Tap::deliver(EvdevCode key, const VerdictChords& chords, const X11HeldKeys& held) {
    const X11KeyPositions& positions = m_session->keyboard.positions();
    KeySet physical = held.physical;
    KeySet shown = held.shown;
    physical.reset(key);
    shown.reset(key);
    const ModifierTable modifiers =
        m_session->keyboard.modifiers().withSpareKeysFor(chords.flagsOfAll(), physical | shown);
    shown &= ~modifiers.keysFor(chords.flagsOfAll() | chords.flagsOfSome());

    KeyDelivery delivery(modifiers, KeyDelivery::Rewritten::Tapped);
    delivery.assume(physical, shown);
    m_steps.clear();
    delivery.handle(
        key, KeyAction::Press, chords.replacement(), KeyDelivery::Sender::Idle, m_steps);

    const auto repeating = m_session->sender.repeatingKeycodes(m_steps, positions);
    const X11Devices::Question question = sendAndAsk(repeating);
    const X11HeldKeys then = m_session->devices.answer(question, positions);

    const KeySet leftDown = pressedAndNotReleased(m_steps);
    m_session->sender.release(leftDown & ~then.physical, positions);
    KeySet fired;
    fired[key] = then.physical[key];
    m_session->watch.add(leftDown & then.real, fired);
}

// Keys that other programs make up cannot change between the question and the keys that go out. The
// grab may be active again, since the server goes on repeating the key.
X11Devices::Question X11Tap::sendAndAsk(const std::vector<xcb_keycode_t>& repeating) const {
    const X11ServerGrab grab(*m_connection);
    X11Devices::Question question = m_session->devices.ask();
    xcb_ungrab_keyboard(m_connection->get(), XCB_CURRENT_TIME);
    m_session->sender.send(m_steps, m_session->keyboard.positions(), repeating);
    return question;
}

} // namespace pallistrom
