// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

namespace pallistrom {

/// A promise in words, if one is broken.
using BrokenPromise = std::optional<std::string_view>;

/// Where pauses stand: between each change of modifiers that nobody typed and the keys next to it,
/// and nowhere else. Watches one list of steps.
class PauseRule {
public:
    enum class Step : std::uint8_t {
        Key,           ///< of a key that is no modifier
        TypedModifier, ///< of a modifier, because that is what was typed
        MadeUpModifier,
        EitherModifier, ///< was typed, and other modifiers may change with it
        Pause,
    };

    BrokenPromise follow(Step step) {
        const BrokenPromise broken = wouldBreak(step);
        m_last = step;
        m_isAfterKey = step == Step::Key || (m_isAfterKey && wasTyped(step));
        m_isAfterChange = step == Step::MadeUpModifier || (m_isAfterChange && wasTyped(step));
        m_wasChange = step == Step::MadeUpModifier || step == Step::EitherModifier;
        return broken;
    }

    /// To be called when no more steps come of an event.
    [[nodiscard]] BrokenPromise end() const {
        return m_owesChange ? BrokenPromise("a pause goes with no change of modifiers")
                            : std::nullopt;
    }

    friend bool operator==(const PauseRule&, const PauseRule&) = default;

private:
    static bool wasTyped(Step step) {
        return step == Step::TypedModifier || step == Step::EitherModifier;
    }

    BrokenPromise wouldBreak(Step step) {
        const bool owesChange = std::exchange(m_owesChange, false);
        if (step == Step::Pause) {
            if (m_last == Step::Pause) {
                return "two pauses follow each other";
            }
            m_owesChange = !m_wasChange;
            return std::nullopt;
        }
        if (owesChange && step != Step::MadeUpModifier && step != Step::EitherModifier) {
            return "a pause goes with no change of modifiers";
        }
        if ((step == Step::Key && m_isAfterChange) ||
            (step == Step::MadeUpModifier && m_isAfterKey)) {
            return "no pause stands between a change of modifiers and a key";
        }
        return std::nullopt;
    }

    std::optional<Step> m_last;
    bool m_isAfterKey = false;    ///< since the last pause, and no change came since
    bool m_isAfterChange = false; ///< the same for a change
    bool m_wasChange = false;
    bool m_owesChange = false;
};

} // namespace pallistrom
