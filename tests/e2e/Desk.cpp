// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Desk.h"

namespace pallistrom::e2e {

Desk::Desk(const std::string& fieldProgram, Lines lines, Keyboard keyboard, Program which)
    : program(which == Program::Pallistrom
                  ? std::optional<Pallistrom>{std::in_place, display.name()}
                  : std::optional<Pallistrom>{}),
      field{fieldProgram, display.name(), lines},
      keys{display.name(), keyboard} {}

} // namespace pallistrom::e2e
