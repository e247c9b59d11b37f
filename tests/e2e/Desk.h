// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Field.h"
#include "Keys.h"
#include "Pallistrom.h"
#include "VirtualDisplay.h"

#include <optional>
#include <string>

namespace pallistrom::e2e {

/// A display with a text field, somebody who types into it, and Pallistrom or not.
struct Desk {
    enum class Program { None, Pallistrom };

    Desk(const std::string& fieldProgram, Lines lines, Keyboard keyboard, Program which);

    VirtualDisplay display;
    std::optional<Pallistrom> program; ///< before the field, which has the keyboard in the end
    Field field;
    Keys keys;
};

} // namespace pallistrom::e2e
