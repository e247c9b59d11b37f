// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FilteredKeyboard.h"
#include "KeyboardHost.h"

#include <memory>
#include <string>

namespace pallistrom::vm {

/// A host of the service's keyboards and a keyboard that it filters. To start one takes longer than
/// most tests, so it stays for those that follow; but there is only one at a time, because each
/// would grab what belongs to the other.
class KeyboardStage {
public:
    /// Returns the stage whose host is `program`, which replaces any other. Fails the test if its
    /// keyboard is not filtered.
    static KeyboardStage& with(const std::string& program);

    /// Leaves none, for tests that start programs of their own.
    static void clear();

    [[nodiscard]] KeyboardHost& host() { return m_host; }

    [[nodiscard]] FilteredKeyboard& keyboard() { return m_keyboard; }

private:
    explicit KeyboardStage(const std::string& program);

    static std::unique_ptr<KeyboardStage>& current();

    std::string m_program;
    KeyboardHost m_host;
    FilteredKeyboard m_keyboard;
};

} // namespace pallistrom::vm
