// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keys/ModifierState.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <array>
#include <optional>

namespace pallistrom {

namespace {

TEST(ModifierState, hasTheFlagsOfWhatIsHeld) {
    ModifierState state(ModifierTable::standard());
    EXPECT_EQ(state.flags(), 0U);
    state.press(KEY_LEFTCTRL);
    state.press(KEY_RIGHTSHIFT);
    state.press(KEY_W);
    EXPECT_EQ(state.flags(), kCGEventFlagMaskControl | kCGEventFlagMaskShift);
    state.release(KEY_LEFTCTRL);
    EXPECT_EQ(state.flags(), kCGEventFlagMaskShift);
}

TEST(ModifierState, keepsAModifierUntilTheLastOfItsKeysIsUp) {
    ModifierState state(ModifierTable::standard());
    state.press(KEY_LEFTALT);
    state.press(KEY_RIGHTALT);
    state.release(KEY_LEFTALT);
    EXPECT_EQ(state.flags(), kCGEventFlagMaskAlternate);
    state.release(KEY_RIGHTALT);
    EXPECT_EQ(state.flags(), 0U);
}

TEST(ModifierState, locksCapsWithEachPress) {
    ModifierState state(ModifierTable::standard());
    state.press(KEY_CAPSLOCK);
    state.press(KEY_CAPSLOCK); // A repeat is no second press.
    state.release(KEY_CAPSLOCK);
    EXPECT_EQ(state.flags(), kCGEventFlagMaskAlphaShift);
    state.press(KEY_CAPSLOCK);
    state.release(KEY_CAPSLOCK);
    EXPECT_EQ(state.flags(), 0U);
}

TEST(ModifierState, countsHeldKeysByTheTableOfTheMoment) {
    ModifierState state(ModifierTable::standard());
    state.press(KEY_CAPSLOCK);
    state.press(KEY_RIGHTALT);
    ModifierTable table;
    table.set(KEY_CAPSLOCK, Modifier::Control);
    table.set(KEY_RIGHTALT, Modifier::Level3);
    state.setTable(table);
    EXPECT_EQ(state.flags() & ~kCGEventFlagMaskAlphaShift, kCGEventFlagMaskControl);
}

TEST(ModifierTable, findsTheLowestKeyThatDoesAModifier) {
    ModifierTable table = ModifierTable::standard();
    EXPECT_EQ(table.keyFor(Modifier::Control), KEY_LEFTCTRL);
    table.set(KEY_LEFTCTRL, Modifier::None);
    EXPECT_EQ(table.keyFor(Modifier::Control), KEY_RIGHTCTRL);
    EXPECT_FALSE(table.keyFor(Modifier::Level3));
}

TEST(ModifierTable, hasAllPrintedModifiersAndNoOtherKeyPressed) {
    KeySet printed;
    for (EvdevCode code = 0; code <= ModifierTable::highestCode; ++code) {
        printed[code] = ModifierTable::standard().modifierOf(code) != Modifier::None;
    }
    EXPECT_EQ(ModifierTable::pressable(), printed);
}

TEST(ModifierTable, findsNoKeyThatIsAModifierInThisSessionOnly) {
    ModifierTable table;
    for (EvdevCode code = 0; code <= ModifierTable::highestCode; ++code) {
        table.set(code, Modifier::Control);
    }
    for (const EvdevCode code : std::to_array<EvdevCode>({KEY_LEFTCTRL,
                                                          KEY_LEFTSHIFT,
                                                          KEY_RIGHTSHIFT,
                                                          KEY_LEFTALT,
                                                          KEY_CAPSLOCK,
                                                          KEY_RIGHTCTRL,
                                                          KEY_RIGHTALT,
                                                          KEY_LEFTMETA,
                                                          KEY_RIGHTMETA})) {
        EXPECT_EQ(table.keyFor(Modifier::Control), code);
        table.set(code, Modifier::None);
    }
    EXPECT_EQ(table.modifierOf(KEY_ENTER), Modifier::Control);
    EXPECT_EQ(table.keyFor(Modifier::Control), std::nullopt);
    EXPECT_EQ(table.withSpareKeysFor(kCGEventFlagMaskControl, {}), table);
}

TEST(ModifierTable, hasSpareKeysForModifiersThatAreHeld) {
    const ModifierTable table = ModifierTable::standard();
    KeySet held;
    held.set(KEY_LEFTCTRL).set(KEY_LEFTSHIFT).set(KEY_W);
    const ModifierTable spare = table.withSpareKeysFor(kCGEventFlagMaskControl, held);
    EXPECT_EQ(spare.keyFor(Modifier::Control), KEY_RIGHTCTRL);
    EXPECT_EQ(spare.modifierOf(KEY_LEFTCTRL), Modifier::None);
    EXPECT_EQ(spare.modifierOf(KEY_LEFTSHIFT), Modifier::Shift) << "not asked for";

    held.set(KEY_RIGHTCTRL);
    EXPECT_EQ(table.withSpareKeysFor(kCGEventFlagMaskControl, held), table) << "none is left";
}

TEST(ModifierTable, hasNoModifiersAboveItsHighestKey) {
    ModifierTable table;
    table.set(ModifierTable::highestCode, Modifier::Shift);
    table.set(ModifierTable::highestCode + 1, Modifier::Shift);
    table.set(65535, Modifier::Shift);
    EXPECT_EQ(table.modifierOf(ModifierTable::highestCode), Modifier::Shift);
    EXPECT_EQ(table.modifierOf(ModifierTable::highestCode + 1), Modifier::None);
    EXPECT_EQ(table.modifierOf(65535), Modifier::None);
}

} // namespace

} // namespace pallistrom
