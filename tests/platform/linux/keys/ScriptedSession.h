// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "KeyScript.h"
#include "platform/linux/keys/KeyDelivery.h"
#include "platform/linux/keys/ModifierTable.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom {

/// A keyboard, the rules of the catalogue with all switches on, and the delivery between them and
/// the session: the way of a key without any device.
class ScriptedSession {
public:
    explicit ScriptedSession(KeyDelivery::Rewritten rewritten,
                             const ModifierTable& table = ModifierTable::standard());

    /// Puts what a keyboard sends through and returns what goes out, in the notation of KeyScript.
    std::string play(std::string_view script);

    /// Lets go of everything and returns what goes out: nothing where nothing was down.
    std::string letGo();

    /// Whether earlier steps are said to be still going out.
    KeyDelivery::Sender sender = KeyDelivery::Sender::Idle;
    /// Whether an application that keeps its own keys is in front.
    bool keysAreLeftAlone = false;

    KeyDelivery delivery;

private:
    void put(const KeyScript::Event& event);

    std::vector<OutputStep> m_steps;
};

} // namespace pallistrom
