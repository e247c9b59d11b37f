// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "engine/ShortcutLibrary.h"

#include "engine/KeyCode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <set>
#include <string_view>
#include <tuple>
#include <vector>

namespace pallistrom {

namespace {

// Returns what `get` says of each shortcut.
template<typename Get>
auto ofEach(const Get& get) {
    std::vector<decltype(get(ShortcutLibrary::all[0]))> result;
    result.reserve(ShortcutLibrary::all.size());
    for (const ShortcutDef& shortcut : ShortcutLibrary::all) {
        result.push_back(get(shortcut));
    }
    return result;
}

TEST(ShortcutLibrary, hasFourShortcutsInTheirOrder) {
    EXPECT_EQ(ofEach([](const ShortcutDef& shortcut) { return shortcut.id; }),
              (std::vector<std::string_view>{"ctrlW", "ctrlU", "ctrlK", "altD"}));
}

TEST(ShortcutLibrary, findsAShortcutByItsExactIdOnly) {
    const auto found = ShortcutLibrary::shortcut("ctrlK");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->title, ShortcutLibrary::all[2].title);
    for (const std::string_view id : {"CTRLK", "ctrlk", "", "ctrl", "ctrlK ", "ctrlWK"}) {
        EXPECT_FALSE(ShortcutLibrary::shortcut(id)) << id;
    }
}

TEST(ShortcutLibrary, saysWhatEachShortcutIs) {
    using Texts = std::tuple<std::string_view, std::string_view, std::string_view>;
    const std::vector<Texts> expected{
        {"Delete word", "Erase the word before the cursor", "\xE2\x8C\x83\x57"},
        {"Delete to line start", "Erase everything to the left of the cursor", "\xE2\x8C\x83\x55"},
        {"Delete to line end", "Erase everything to the right of the cursor", "\xE2\x8C\x83\x4B"},
        {"Delete word forward",
         "Erase the word after the cursor (blocks typing \xE2\x88\x82)",
         "\xE2\x8C\xA5\x44"},
    };
    const auto textsOf = [](const ShortcutDef& shortcut) {
        return Texts(shortcut.title, shortcut.subtitle, shortcut.keyLabel);
    };
    EXPECT_EQ(ofEach(textsOf), expected);
}

TEST(ShortcutLibrary, firesOnTheseKeysWithTheseModifiers) {
    using Trigger = std::tuple<std::int64_t, CGEventFlags, CGEventFlags>;
    const std::vector<Trigger> expected{{13, 0x40000, 0x180000},
                                        {32, 0x40000, 0x180000},
                                        {40, 0x40000, 0x180000},
                                        {2, 0x80000, 0x140000}};
    const auto triggerOf = [](const ShortcutDef& shortcut) {
        return Trigger(shortcut.triggerKeyCode, shortcut.requiredFlags, shortcut.forbiddenFlags);
    };
    EXPECT_EQ(ofEach(triggerOf), expected);
}

TEST(ShortcutLibrary, switchesOnAndRecommendsTheFirstTwo) {
    const auto flagsOf = [](const ShortcutDef& shortcut) {
        return std::pair(shortcut.defaultEnabled, shortcut.recommended);
    };
    EXPECT_EQ(ofEach(flagsOf),
              (std::vector<std::pair<bool, bool>>{
                  {true, true}, {true, true}, {false, false}, {false, false}}));
}

TEST(ShortcutLibrary, rewritesThreeShortcutsToCompleteMasks) {
    const auto rewriteOf = [](std::string_view id) {
        const auto action = ShortcutLibrary::shortcut(id)->action.value();
        const auto rewrite = std::get<ShortcutAction::Rewrite>(action);
        return std::pair{rewrite.keyCode, rewrite.flags};
    };
    EXPECT_EQ(rewriteOf("ctrlW"), (std::pair<std::int64_t, CGEventFlags>{51, 0x80000}));
    EXPECT_EQ(rewriteOf("ctrlU"), (std::pair<std::int64_t, CGEventFlags>{51, 0x100000}));
    EXPECT_EQ(rewriteOf("altD"), (std::pair<std::int64_t, CGEventFlags>{117, 0x80000}));
}

TEST(ShortcutLibrary, selectsToTheLineEndAndThenDeletes) {
    const auto action = ShortcutLibrary::shortcut("ctrlK")->action.value();
    const auto chords = std::get<ShortcutAction::Sequence>(action).chords;
    ASSERT_EQ(chords.size(), 2U);
    EXPECT_EQ(chords[0].keyCode, 124);
    EXPECT_EQ(chords[0].flags, 0x120000U);
    EXPECT_EQ(chords[1].keyCode, 51);
    EXPECT_EQ(chords[1].flags, 0U);
}

TEST(ShortcutLibrary, sharesTheListOfASequenceAmongCopies) {
    const auto first = ShortcutLibrary::shortcut("ctrlK");
    const ShortcutAction copy = first->action;
    EXPECT_EQ(
        std::get<ShortcutAction::Sequence>(copy.value()).chords.data(),
        std::get<ShortcutAction::Sequence>(ShortcutLibrary::all[2].action.value()).chords.data());
}

// What every chord and rewrite of the catalogue emits.
std::vector<std::int64_t> emittedKeyCodes() {
    std::vector<std::int64_t> keyCodes;
    for (const ShortcutDef& shortcut : ShortcutLibrary::all) {
        const auto& action = shortcut.action.value();
        if (const auto* const rewrite = std::get_if<ShortcutAction::Rewrite>(&action)) {
            keyCodes.push_back(rewrite->keyCode);
        } else {
            for (const KeyChord& chord : std::get<ShortcutAction::Sequence>(action).chords) {
                keyCodes.push_back(chord.keyCode);
            }
        }
    }
    return keyCodes;
}

TEST(ShortcutLibrary, neverEmitsATrigger) {
    for (const std::int64_t keyCode : emittedKeyCodes()) {
        EXPECT_TRUE(std::none_of(ShortcutLibrary::all.begin(),
                                 ShortcutLibrary::all.end(),
                                 [&](const auto& s) { return s.triggerKeyCode == keyCode; }))
            << keyCode;
    }
}

TEST(ShortcutLibrary, emitsKeyCodesThatCanBePosted) {
    EXPECT_EQ(emittedKeyCodes().size(), 5U);
    for (const std::int64_t keyCode : emittedKeyCodes()) {
        EXPECT_GE(keyCode, 0);
        EXPECT_LE(keyCode, std::numeric_limits<std::uint16_t>::max());
    }
}

TEST(ShortcutLibrary, hasUniqueIdsAndNoModifierBothRequiredAndForbidden) {
    std::set<std::string_view> ids;
    for (const ShortcutDef& shortcut : ShortcutLibrary::all) {
        EXPECT_TRUE(ids.insert(shortcut.id).second) << shortcut.id;
        EXPECT_EQ(shortcut.requiredFlags & shortcut.forbiddenFlags, 0U) << shortcut.id;
    }
}

TEST(KeyCode, namesTheKeysOfTheShortcuts) {
    EXPECT_EQ(KeyCode::w, 13);
    EXPECT_EQ(KeyCode::u, 32);
    EXPECT_EQ(KeyCode::k, 40);
    EXPECT_EQ(KeyCode::d, 2);
    EXPECT_EQ(KeyCode::delete_, 51);
    EXPECT_EQ(KeyCode::forwardDelete, 117);
    EXPECT_EQ(KeyCode::right, 124);
    EXPECT_EQ(KeyCode::left, 123);
}

} // namespace

} // namespace pallistrom
