// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "DeliveryChecker.h"
#include "DeliveryScript.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom {

/// What a delivery starts with.
struct DeliverySetup {
    enum class Lists : std::uint8_t {
        One,     ///< all steps go into one list
        OneEach, ///< those of each input into a new one
    };

    ModifierTable table = ModifierTable::standard();
    KeyDelivery::Rewritten rewritten = KeyDelivery::Rewritten::Held;
    Lists lists = Lists::One;
};

/// A delivery that is watched.
class CheckedDelivery {
public:
    explicit CheckedDelivery(const DeliverySetup& setup);

    /// Returns the promise that is broken by what comes of `input`.
    BrokenPromise put(const DeliveryInput& input);

    /// The modifiers that a key event carries which comes now.
    [[nodiscard]] CGEventFlags flags() const { return m_delivery.flags(); }

    [[nodiscard]] bool isModifier(EvdevCode key) const { return m_delivery.isModifier(key); }

    [[nodiscard]] const DeliverySituation& situation() const { return m_checker.situation(); }

private:
    DeliverySetup::Lists m_lists;
    KeyDelivery m_delivery;
    DeliveryChecker m_checker;
    /// The end of the one list: more of it makes no difference.
    std::optional<OutputStep> m_last;
};

/// A script that breaks a promise, or not.
struct CheckedScript {
    DeliverySetup setup;
    std::vector<DeliveryInput> inputs;

    [[nodiscard]] BrokenPromise broken() const;

    /// Returns what goes out.
    [[nodiscard]] std::string output() const;

    /// Returns whether nothing is down in the end.
    [[nodiscard]] bool leavesNothingDown() const;

    /// Returns a script that breaks a promise like this one, and of which nothing can be left out.
    [[nodiscard]] CheckedScript shrunk() const;

    /// Returns the script, what goes out and which promise that breaks.
    [[nodiscard]] std::string report() const;
};

} // namespace pallistrom
