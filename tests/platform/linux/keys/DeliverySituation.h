// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "DeliveryScript.h"
#include "ModifierSets.h"
#include "PauseRule.h"

#include <optional>
#include <span>

namespace pallistrom {

/// A rewritten chord that is down for as long as the key that caused it.
struct ShownChord {
    EvdevCode cause = 0;
    LinuxChord chord;

    friend bool operator==(const ShownChord&, const ShownChord&) = default;
};

/// All that matters of what a delivery was given and gave so far.
struct DeliverySituation {
    KeySet held;  ///< physically, as far as the delivery is to know
    KeySet shown; ///< down in the output
    std::optional<ShownChord> chord;
    /// Keys that became modifiers while they were held and not shown: that they are missing in the
    /// output is nobody's fault.
    KeySet strangers;
    EvdevCode typedLast = 0; ///< the key that went down last
    EvdevCode toldLast = 0;  ///< the key that was said to, be it down already or not
    /// The key of the last press in the output if that was option or command without a control,
    /// which would keep it from being taken for tapped alone.
    EvdevCode shownAlone = 0;
    PauseRule pauses;

    friend bool operator==(const DeliverySituation&, const DeliverySituation&) = default;
};

/// What is to come of an input.
struct DeliveryExpectation {
    KeySet held; ///< from now on
    /// The step of the key itself: may come once, a press as the last step, and must if `isDue`.
    std::optional<OutputStep> own;
    bool isDue = false;
    std::span<const LinuxChord> chords; ///< to be shown in this order
    std::optional<ShownChord> chord;    ///< that is down in the end
    KeySet mayGoUp;                     ///< keys that are no modifiers
    bool mayChangeModifiers = false;
};

/// Returns what is to come of `input`. It refers to `input`.
[[nodiscard]] DeliveryExpectation expectationOf(const DeliveryInput& input,
                                                const DeliverySituation& now,
                                                const ModifierSets& modifiers,
                                                KeyDelivery::Rewritten rewritten);

} // namespace pallistrom
