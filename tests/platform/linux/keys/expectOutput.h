// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ScriptCase.h"
#include "platform/linux/keys/KeyDelivery.h"

namespace pallistrom {

// Declared once and implemented twice, here without any device and in tests/vm with real ones: the
// same cases are to hold for both.

/// Plays the script of `c`, in the notation of KeyScript, by the rules of the catalogue: exactly
/// what `c` says is to go out, and nothing to stay down.
void expectOutput(const ScriptCase& c, KeyDelivery::Rewritten rewritten);

/// The same for a script in the notation of DeliveryScript, which says itself what is decided.
void expectDelivery(const ScriptCase& c, KeyDelivery::Rewritten rewritten);

} // namespace pallistrom
