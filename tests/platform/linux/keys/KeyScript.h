// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/KeyDelivery.h"

#include <string>
#include <string_view>
#include <vector>

/// The notation of key tests, failure messages and reports: "+ctrl" is a press, "-ctrl" a release,
/// "~w" a repeat that the keyboard sends for a key that is held and, in what goes out, "." a pause.
/// Words are separated by spaces.
namespace pallistrom::KeyScript {

struct Event {
    EvdevCode key = 0;
    KeyAction action = KeyAction::Press;

    friend bool operator==(const Event&, const Event&) = default;
};

/// Returns the key of this name; a name that is none fails the test.
[[nodiscard]] EvdevCode keyNamed(std::string_view name);

/// Returns the name of `key`, or its number if it has none.
[[nodiscard]] std::string nameOf(EvdevCode key);

/// Reads what a keyboard sends.
[[nodiscard]] std::vector<Event> parse(std::string_view script);

[[nodiscard]] std::string print(const std::vector<Event>& events);
[[nodiscard]] std::string print(const std::vector<OutputStep>& steps);

} // namespace pallistrom::KeyScript
