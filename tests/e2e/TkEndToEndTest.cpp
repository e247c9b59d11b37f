// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ShortcutTest.h"
#include "Tools.h"

namespace pallistrom::e2e {

namespace {

/// A field of Tk, which knows no keys that delete words: to it, Control-BackSpace is BackSpace and
/// Control-Delete is Delete. It can select words.
class TkField : public ShortcutTest {
protected:
    void SetUp() override {
        if (const std::string missing = missingPrograms({"wish"}); !missing.empty()) {
            GTEST_SKIP() << missing;
        }
        setUpDesks({"field-tk", Keyboard::Device});
        if (!IsSkipped()) {
            switchOnAll();
        }
    }

    static inline const TextState start{.text = "alpha beta gamma delta", .cursor = 11};
};

TEST_F(TkField, losesAllToTheLeftToControlU) {
    play(start, "+ctrl +u -u -ctrl");
    expectEnd({.text = "gamma delta", .cursor = 0});
}

TEST_F(TkField, losesAllToTheRightToControlK) {
    play(start, "+ctrl +k -k -ctrl");
    expectEnd({.text = "alpha beta ", .cursor = 11});
}

TEST_F(TkField, losesTheWordBeforeTheCursorToControlW) {
    play(start, "+ctrl +w -w -ctrl");
    expectEnd({.text = "alpha gamma delta", .cursor = 6});
}

TEST_F(TkField, losesWordAfterWordWhileControlWIsHeld) {
    play(start, "+ctrl +w");
    EXPECT_EQ(desk().field.waitFor({.text = "gamma delta", .cursor = 0}),
              (TextState{.text = "gamma delta", .cursor = 0}));
    desk().keys.play("-w -ctrl");
    expectEnd({.text = "gamma delta", .cursor = 0});
}

TEST_F(TkField, losesTheWordAfterTheCursorToOptionD) {
    EXPECT_EQ(withoutProgram(start, "+ctrl +Delete -Delete -ctrl").text, "alpha beta amma delta")
        << "is why a word is selected first";
    play(start, "+alt +d -d -alt");
    const TextState state = desk().field.waitFor(
        [](const TextState& each) { return each.text.size() < start.text.size() - 4; });
    EXPECT_TRUE(state.text == "alpha beta delta" || state.text == "alpha beta  delta");
}

} // namespace

} // namespace pallistrom::e2e
