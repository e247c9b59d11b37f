// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ShortcutTest.h"
#include "Tools.h"

namespace pallistrom::e2e {

namespace {

/// A field of Tk, which knows no editing keys for words: to it, Control-BackSpace is BackSpace and
/// Control-Delete is Delete.
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

TEST_F(TkField, losesOnlyOneCharacterToControlWAsItDoesToControlBackSpace) {
    const TextState expected{.text = "alpha betagamma delta", .cursor = 10};
    EXPECT_EQ(withoutProgram(start, "+ctrl +BackSpace -BackSpace -ctrl"), expected);
    play(start, "+ctrl +w -w -ctrl");
    expectEnd(expected);
}

TEST_F(TkField, losesOnlyOneCharacterToOptionDAsItDoesToControlDelete) {
    const TextState expected{.text = "alpha beta amma delta", .cursor = 11};
    EXPECT_EQ(withoutProgram(start, "+ctrl +Delete -Delete -ctrl"), expected);
    play(start, "+alt +d -d -alt");
    expectEnd(expected);
}

} // namespace

} // namespace pallistrom::e2e
