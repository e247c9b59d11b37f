// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "DeliverySituation.h"

#include <span>

namespace pallistrom {

/// Watches what goes into a delivery and what comes out, and knows the first promise that breaks:
///
/// - No key goes down, or up, twice. What is down in the output is physically held, so with nothing
///   held nothing is down; a key that was shown goes up no later than its own release.
/// - An untouched press or release goes on once, after all that has to come before it.
/// - The modifiers of the output are those that are held. Caps lock is never pressed for a chord.
/// - Each chord is pressed in its turn, with exactly its modifiers and those only, which stay until
///   it is up. A rewritten chord stays down until its key or a modifier goes up, or another press
///   or chord comes. Nothing else is shown: neither for what was swallowed nor for a repeat of what
///   is down, or one that comes while earlier steps are still going out.
/// - Option or command are shown tapped alone only if they were typed so.
/// - Control, option and Delete together are shown only if they were typed or asked for.
/// - Control and shift come together only if both are held or asked for.
/// - Pauses stand as PauseRule says.
class DeliveryChecker {
public:
    DeliveryChecker(const ModifierTable& table, KeyDelivery::Rewritten rewritten)
        : m_modifiers(table), m_rewritten(rewritten) {}

    /// Says that the next steps go into a list of their own.
    void startList() { m_now.pauses = {}; }

    /// `steps` came of `input`. No key of either is above those of a keyboard.
    BrokenPromise watch(const DeliveryInput& input, std::span<const OutputStep> steps);

    [[nodiscard]] const DeliverySituation& situation() const { return m_now; }

private:
    ModifierSets m_modifiers;
    KeyDelivery::Rewritten m_rewritten;
    DeliverySituation m_now;
};

} // namespace pallistrom
