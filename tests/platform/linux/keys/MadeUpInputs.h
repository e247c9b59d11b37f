// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "CheckedDelivery.h"
#include "DeliveryScript.h"

#include <cstddef>
#include <functional>

namespace pallistrom {

/// Makes up what happens to a delivery: keys of a whole keyboard, mostly as hands press them, with
/// decisions of the catalogue and any others, sessions that move their modifiers, applications that
/// keep their keys, everything let go in between, and events that come from nowhere.
class MadeUpInputs {
public:
    /// Returns a number below its argument.
    using Choose = std::function<std::size_t(std::size_t)>;

    explicit MadeUpInputs(Choose choose) : m_choose(std::move(choose)) {}

    [[nodiscard]] DeliverySetup setup();

    /// Returns what happens next to `delivery`.
    [[nodiscard]] DeliveryInput next(const CheckedDelivery& delivery);

private:
    [[nodiscard]] ModifierTable table();
    [[nodiscard]] KeyScript::Event event();
    [[nodiscard]] std::optional<OwnReplacement> change(const KeyScript::Event& event,
                                                       CGEventFlags flags);

    [[nodiscard]] bool isOneIn(std::size_t count) { return m_choose(count) == count - 1; }

    template<typename List>
    [[nodiscard]] const auto& oneOf(const List& list) {
        return list[m_choose(list.size())];
    }

    Choose m_choose;
    KeySet m_down; ///< on the keyboard
    bool m_keysAreLeftAlone = false;
};

} // namespace pallistrom
