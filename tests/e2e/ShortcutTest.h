// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Desk.h"
#include "Shortcut.h"
#include "TextState.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <iosfwd>
#include <string>
#include <string_view>

namespace pallistrom::e2e {

/// Where a test takes place: which toolkit's field, which kind of keyboard.
struct Place {
    std::string field;
    Keyboard keyboard;
    Lines lines = Lines::One;

    friend bool operator==(const Place&, const Place&) = default;
};

void PrintTo(const Place& place, std::ostream* out);

/// A test with two desks that have the same kind of field: at one Pallistrom runs; the other shows
/// what the field does by itself. Tests of one place that follow each other share the desks. A test
/// ends well only if no key is down any more and the program still runs.
class ShortcutTest : public testing::Test {
public:
    static void TearDownTestSuite();

protected:
    /// Skips the test if the place lacks something.
    static void setUpDesks(const Place& place);
    void TearDown() override;

    /// The desk at which Pallistrom runs.
    static Desk& desk();

    /// Switches on just these shortcuts, and waits until that has taken effect.
    static void switchOnOnly(std::initializer_list<std::string> ids);
    static void switchOnAll();

    /// What the field itself makes of a script of keys.
    static TextState withoutProgram(const TextState& start, std::string_view script);

    /// Puts the desk's field into a state and plays the script there.
    static void play(const TextState& start, std::string_view script);

    /// Checks that the desk's field comes to `expected` and that nothing follows, which a letter
    /// typed after it would show.
    static void expectEnd(const TextState& expected);

private:
    static void reportFailure();
};

} // namespace pallistrom::e2e
