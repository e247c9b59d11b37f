// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ShortcutTest.h"

namespace pallistrom::e2e {

namespace {

/// The shortcuts with each other, at one place.
class AllShortcuts : public ShortcutTest, public testing::WithParamInterface<Place> {
protected:
    void SetUp() override {
        setUpDesks(GetParam());
        if (!IsSkipped()) {
            switchOnAll();
        }
    }
};

TEST_P(AllShortcuts, leavePlainLettersAlone) {
    play({}, "+w -w +u -u +k -k +d -d +shift +w -w +u -u +k -k +d -d -shift");
    expectEnd({.text = "wukdWUKD", .cursor = 8});
}

TEST_P(AllShortcuts, includeAControlKThatTakesTheCharacterToTheLeftAtTheEndOfTheLine) {
    play({.text = "alpha beta", .cursor = 10}, "+ctrl +k -k -ctrl");
    expectEnd({.text = "alpha bet", .cursor = 9});
}

TEST_P(AllShortcuts, followEachOtherWhileControlStaysDown) {
    // Control-K is made without Control, which then has to be back for control-W.
    const TextState start{.text = "alpha beta gamma delta", .cursor = 11};
    play(start, "+ctrl +k -k");
    const TextState withoutRight{.text = "alpha beta ", .cursor = 11};
    EXPECT_EQ(desk().field.waitFor(withoutRight), withoutRight);
    desk().keys.play("+w -w -ctrl");
    expectEnd({.text = "alpha ", .cursor = 6});
}

auto at(const Place& place) {
    return testing::Values(place);
}

INSTANTIATE_TEST_SUITE_P(Gtk3Keyboard, AllShortcuts, at({"field-gtk3", Keyboard::Device}));
INSTANTIATE_TEST_SUITE_P(Gtk3FakedKeys, AllShortcuts, at({"field-gtk3", Keyboard::Faked}));
INSTANTIATE_TEST_SUITE_P(Gtk4Keyboard, AllShortcuts, at({"field-gtk4", Keyboard::Device}));
INSTANTIATE_TEST_SUITE_P(Gtk4FakedKeys, AllShortcuts, at({"field-gtk4", Keyboard::Faked}));
INSTANTIATE_TEST_SUITE_P(Qt6Keyboard, AllShortcuts, at({"field-qt6", Keyboard::Device}));
INSTANTIATE_TEST_SUITE_P(Qt6FakedKeys, AllShortcuts, at({"field-qt6", Keyboard::Faked}));

} // namespace

} // namespace pallistrom::e2e
