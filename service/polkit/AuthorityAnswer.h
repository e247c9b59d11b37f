// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keyboardservice/KeyboardInterface.h"

#include <systemd/sd-bus.h>

namespace pallistrom {

/// Reads what the system's authority answers to CheckAuthorization(). Anything but a plain yes is
/// no; a no because nobody could be asked is told apart.
[[nodiscard]] KeyboardInterface::GrantAnswer readAuthorityAnswer(sd_bus_message* answer);

} // namespace pallistrom
