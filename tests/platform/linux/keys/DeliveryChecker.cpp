// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "DeliveryChecker.h"

#include <linux/input-event-codes.h>

namespace pallistrom {

namespace {

/// Follows the steps that come of one input.
class StepWatch {
public:
    StepWatch(const DeliveryExpectation& expected,
              const ModifierSets& modifiers,
              DeliverySituation& now)
        : m_expected(expected), m_modifiers(modifiers), m_now(now) {
        if (now.chord) {
            m_open = &now.chord->chord;
        }
    }

    BrokenPromise follow(const OutputStep& step, bool isLast) {
        if (step.kind == OutputStep::Kind::Pause) {
            return m_expected.mayChangeModifiers ? m_now.pauses.follow(PauseRule::Step::Pause)
                                                 : "a pause delays what nobody changed";
        }
        // A press of the key comes last: before, the same key may have kept others company.
        m_isOwn = m_expected.own == step && !m_ownCame &&
                  (isLast || step.kind == OutputStep::Kind::Release);
        m_ownCame = m_ownCame || m_isOwn;
        if (m_modifiers.all()[step.key] && m_open != nullptr) {
            return "a modifier changes while a chord is down";
        }
        if (const BrokenPromise broken = m_now.pauses.follow(kindOf(step))) {
            return broken;
        }
        return step.kind == OutputStep::Kind::Press ? press(step.key) : release(step.key);
    }

    BrokenPromise end() {
        if (const BrokenPromise broken = m_now.pauses.end()) {
            return broken;
        }
        if (m_expected.isDue && !m_ownCame) {
            return "an untouched press is lost";
        }
        if (m_next != m_expected.chords.size()) {
            return "a chord is not shown";
        }
        if (m_open != nullptr && !m_expected.chord) {
            return "a chord stays down too long";
        }
        if (m_expected.chord && (m_open == nullptr || *m_open != m_expected.chord->chord)) {
            return "a chord that lasts as long as its key goes up too soon";
        }
        return rest();
    }

private:
    // --- One step.

    [[nodiscard]] PauseRule::Step kindOf(const OutputStep& step) const {
        if (!m_modifiers.all()[step.key]) {
            return PauseRule::Step::Key;
        }
        // Caps lock makes no difference to any key.
        if (m_modifiers.of(Modifier::CapsLock)[step.key]) {
            return PauseRule::Step::TypedModifier;
        }
        if (!m_isOwn) {
            return PauseRule::Step::MadeUpModifier;
        }
        const bool mayBePart =
            m_expected.mayChangeModifiers && step.kind == OutputStep::Kind::Release;
        return mayBePart ? PauseRule::Step::EitherModifier : PauseRule::Step::TypedModifier;
    }

    BrokenPromise press(EvdevCode key) {
        if (m_now.shown[key]) {
            return "a key goes down that is down";
        }
        const KeySet before = m_now.shown;
        m_now.shown.set(key);
        const bool isAlone = m_modifiers.openers()[key] && !hasControl(before) && canHaveControl();
        m_now.shownAlone = isAlone ? key : EvdevCode{0};
        if (key == KEY_DELETE &&
            isUncalledFor(m_now.shown, m_expected.held, Modifier::Control, Modifier::Option)) {
            return "control, option and Delete come together";
        }
        if (m_isOwn) {
            return std::nullopt;
        }
        return m_modifiers.all()[key] ? pressModifier(key, before) : pressOfChord(key);
    }

    BrokenPromise pressModifier(EvdevCode key, const KeySet& before) {
        if (m_modifiers.foreign()[key]) {
            return "a key is pressed that is no modifier elsewhere";
        }
        if (const BrokenPromise broken = changeModifier(key)) {
            return broken;
        }
        const KeySet wanted =
            (m_expected.held & m_modifiers.all()) | m_modifiers.of(Modifier::Control);
        const ModifierSets& sets = m_modifiers;
        if (!wanted[key] && (sets.flags(KeySet().set(key)) & askedFor()) == 0) {
            return "a modifier goes down that nobody holds";
        }
        const KeySet held = m_now.held | m_expected.held;
        if (!sets.areDown(before, Modifier::Control, Modifier::Shift) &&
            isUncalledFor(m_now.shown, held, Modifier::Control, Modifier::Shift)) {
            return "control and shift come together";
        }
        return std::nullopt;
    }

    BrokenPromise pressOfChord(EvdevCode key) {
        if (m_next == m_expected.chords.size() || m_expected.chords[m_next].key != key) {
            return "a key goes down that nobody asked for";
        }
        if (m_open != nullptr) {
            return "a chord begins before the last one ended";
        }
        m_open = &m_expected.chords[m_next++];
        return hasModifiersOf(*m_open) ? std::nullopt
                                       : BrokenPromise("a chord has not its own modifiers");
    }

    BrokenPromise release(EvdevCode key) {
        if (!m_now.shown[key]) {
            return "a key goes up that is up";
        }
        m_now.shown.reset(key);
        const bool isTyped = m_isOwn && m_now.typedLast == key;
        if (m_now.shownAlone == key && m_modifiers.openers()[key] && !isTyped &&
            !hasControl(m_now.shown) && canHaveControl()) {
            return "option or command is tapped alone";
        }
        if (m_modifiers.all()[key]) {
            return m_isOwn ? std::nullopt : changeModifier(key);
        }
        if (m_open != nullptr && m_open->key == key) {
            m_open = nullptr;
            return std::nullopt;
        }
        const bool isNext =
            m_next < m_expected.chords.size() && m_expected.chords[m_next].key == key;
        return m_isOwn || isNext || m_expected.mayGoUp[key]
                   ? std::nullopt
                   : BrokenPromise("a key goes up that is still held");
    }

    // A modifier that nobody typed.
    [[nodiscard]] BrokenPromise changeModifier(EvdevCode key) const {
        if (m_modifiers.of(Modifier::CapsLock)[key] && !m_expected.mayGoUp[key]) {
            return "caps lock is touched";
        }
        return m_expected.mayChangeModifiers ? std::nullopt
                                             : BrokenPromise("a modifier changes for nothing");
    }

    // --- What is down.

    [[nodiscard]] bool canHaveControl() const {
        return (m_modifiers.of(Modifier::Control) & ~m_modifiers.foreign()).any();
    }

    [[nodiscard]] bool hasControl(const KeySet& keys) const {
        return m_modifiers.areDown(keys, Modifier::Control);
    }

    /// The flags of the chord that comes next.
    [[nodiscard]] CGEventFlags askedFor() const {
        return m_next < m_expected.chords.size() ? m_expected.chords[m_next].modifiers : 0;
    }

    /// Whether two modifiers are down together that are neither held nor asked for together.
    [[nodiscard]] bool
    isUncalledFor(const KeySet& down, const KeySet& held, Modifier one, Modifier other) const {
        const CGEventFlags both = flagOf(one) | flagOf(other);
        return m_modifiers.areDown(down, one, other) && !m_modifiers.areDown(held, one, other) &&
               (askedFor() & both) != both;
    }

    [[nodiscard]] bool hasModifiersOf(const LinuxChord& chord) const {
        return m_modifiers.flags(m_now.shown) ==
                   m_modifiers.possible(chord.modifiers, m_now.shown) &&
               !m_modifiers.areDown(m_now.shown, Modifier::Level3);
    }

    [[nodiscard]] BrokenPromise rest() const {
        KeySet mayBeDown = m_expected.held;
        // What had to go up and must not be pressed stays up.
        KeySet compared =
            m_modifiers.all() & ~m_now.strangers & ~(m_modifiers.foreign() & ~m_now.shown);
        if (m_expected.chord) {
            mayBeDown |= m_modifiers.all();
            mayBeDown.set(m_expected.chord->chord.key);
            compared &= m_modifiers.of(Modifier::CapsLock);
            if (!hasModifiersOf(m_expected.chord->chord)) {
                return "a chord loses its modifiers";
            }
        }
        if ((m_now.shown & ~mayBeDown).any()) {
            return "a key stays down that nobody holds";
        }
        if (((m_now.shown ^ m_expected.held) & compared).any()) {
            return "the modifiers are not those that are held";
        }
        return std::nullopt;
    }

    const DeliveryExpectation& m_expected;
    const ModifierSets& m_modifiers;
    DeliverySituation& m_now;
    const LinuxChord* m_open = nullptr; ///< is down
    std::size_t m_next = 0;             ///< of the chords
    bool m_isOwn = false;               ///< the step that is followed
    bool m_ownCame = false;
};

} // namespace

BrokenPromise DeliveryChecker::watch(const DeliveryInput& input,
                                     std::span<const OutputStep> steps) {
    if (input.kind == DeliveryInput::Kind::TakeOver) {
        m_now.shown = input.down;
        m_now.chord.reset();
    }
    const DeliveryExpectation expected = expectationOf(input, m_now, m_modifiers, m_rewritten);
    const EvdevCode key = input.event.key;
    const bool isDown = m_now.held[key] && m_now.shown[key];
    StepWatch watch(expected, m_modifiers, m_now);
    for (const OutputStep& step : steps) {
        if (const BrokenPromise broken = watch.follow(step, &step == &steps.back())) {
            return broken;
        }
    }
    if (const BrokenPromise broken = watch.end()) {
        return broken;
    }
    if (input.kind == DeliveryInput::Kind::Key && input.event.action == KeyAction::Press) {
        // To say of the last key once more that it went down says nothing.
        m_now.toldLast = isDown && key == m_now.typedLast ? m_now.toldLast : key;
        m_now.typedLast = isDown ? m_now.typedLast : key;
    }
    m_now.held = expected.held;
    m_now.chord = expected.chord;
    if (input.kind == DeliveryInput::Kind::NewTable) {
        m_modifiers = ModifierSets(input.table);
        m_now.strangers = m_modifiers.all();
    }
    m_now.strangers &= m_now.held & ~m_now.shown;
    return std::nullopt;
}

} // namespace pallistrom
