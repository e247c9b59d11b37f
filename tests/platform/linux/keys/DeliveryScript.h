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

/// A Replacement that owns its chords.
struct OwnReplacement {
    std::vector<LinuxChord> chords;
    bool isTheKeyItself = false;

    friend bool operator==(const OwnReplacement&, const OwnReplacement&) = default;
};

/// One thing that happens to a delivery.
struct DeliveryInput {
    enum class Kind : std::uint8_t {
        Key,      ///< the keyboard sends `event`, about which `change` was decided
        NewTable, ///< the session has the modifiers of `table` from now on
        LetGo,    ///< everything is let go of
        TakeOver, ///< exactly `down` is down, on the keyboard and as far as the session knows
    };

    Kind kind = Kind::Key;
    KeyScript::Event event;
    std::optional<OwnReplacement> change;
    KeyDelivery::Sender sender = KeyDelivery::Sender::Idle;
    ModifierTable table;
    KeySet down;

    /// Returns `change` as the delivery takes it. Valid as long as this object.
    [[nodiscard]] std::optional<Replacement> replacement() const;

    friend bool operator==(const DeliveryInput&, const DeliveryInput&) = default;
};

/// Key scripts with decisions:
///
///     +w                    untouched
///     +w=ctrl+bs            goes on as Ctrl+BackSpace; the key itself, so it may be held
///     +w>shift+home,bs      is dropped, once Shift+Home and BackSpace have been posted
///     +w>                   is swallowed
///     ~w>bs*                comes while earlier steps are still going out
///     table:caps=control    the session's modifiers: the printed ones, but for these
///     letgo                 everything is let go of
///     down:enter,ctrl       a keyboard is taken over of which these keys are down
namespace DeliveryScript {

/// Reads a script; a word that is none of the above fails the test.
[[nodiscard]] std::vector<DeliveryInput> parse(std::string_view script);

[[nodiscard]] std::string print(const DeliveryInput& input);
[[nodiscard]] std::string print(const std::vector<DeliveryInput>& inputs);
[[nodiscard]] std::string print(const ModifierTable& table);

} // namespace DeliveryScript

} // namespace pallistrom
