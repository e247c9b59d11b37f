// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "CheckedDelivery.h"
#include "DeliveryScript.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace pallistrom {

/// What can happen to a delivery in some test.
struct SmallKeyboard {
    DeliverySetup setup;
    /// Each event of each key with each decision about it that is to be tried.
    std::vector<DeliveryInput> inputs;
    /// If there is one: decides about each input, by the modifiers it comes with.
    std::function<DeliveryInput(DeliveryInput, const CheckedDelivery&)> decide;
};

/// What was tried.
struct Tried {
    std::uint64_t sequences = 0;
    std::uint64_t situations = 0;
    std::optional<CheckedScript> broken; ///< the first script that breaks a promise
};

/// Everything that can come of a small keyboard whose events are possible: what is up is pressed,
/// what is down is released or repeats.
namespace EverySequence {

/// Tries each sequence of up to `length` inputs.
[[nodiscard]] Tried upTo(std::size_t length, const SmallKeyboard& keyboard);

/// Tries each input in each situation that any sequence, however long, leads to. Situations that
/// the checker of the promises cannot tell apart count as one, unless their last inputs differ.
[[nodiscard]] Tried ofAnyLength(const SmallKeyboard& keyboard);

} // namespace EverySequence

} // namespace pallistrom
