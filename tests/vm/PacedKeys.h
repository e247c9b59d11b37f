// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "DeliveryScript.h"
#include "FilteredKeyboard.h"
#include "KeyScript.h"
#include "platform/linux/keys/KeyDelivery.h"

#include <vector>

namespace pallistrom::vm {

/// Knows how many keys a service has shown after each that is typed, so that a test can type the
/// next one when all is through, as people do and as the scripts mean it.
class PacedKeys {
public:
    PacedKeys();

    /// A key event about which is decided what the script says.
    FilteredKeyboard::Typed next(const DeliveryInput& input);

    /// A key event about which the catalogue decides.
    FilteredKeyboard::Typed next(const KeyScript::Event& event);

    /// Everything is let go of.
    void letGo();

    void setModifierTable(const ModifierTable& table);

private:
    void count();

    KeyDelivery m_delivery;
    std::vector<OutputStep> m_steps;
    std::size_t m_shown = 0;
};

} // namespace pallistrom::vm
