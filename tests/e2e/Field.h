// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "Home.h"
#include "TextState.h"

#include <functional>
#include <string>

namespace pallistrom::e2e {

/// How many lines a text field has.
enum class Lines { One, Many };

/// A window with a text field of some toolkit, which tells what stands in it. It has the keyboard
/// of its display once it is made. Throws std::runtime_error if it does not come up or not answer.
class Field {
public:
    /// `program` is the path of a field program.
    Field(const std::string& program, const std::string& display, Lines lines = Lines::One);

    /// Replaces text and cursor; when it returns, they are in place.
    void set(const TextState& state);

    /// Wait until the field says that it is in the state `wanted`, or in one for which `isWanted`
    /// holds. Return the last state of which it has told, wanted or not, for the test to compare.
    [[nodiscard]] TextState waitFor(const TextState& wanted);
    [[nodiscard]] TextState waitFor(const std::function<bool(const TextState&)>& isWanted);

private:
    /// Takes what the field says next; no more if it says nothing sensible until the deadline.
    bool readState(Deadline deadline);

    Home m_home;
    ChildProcess m_process;
    TextState m_lastState;
};

} // namespace pallistrom::e2e
