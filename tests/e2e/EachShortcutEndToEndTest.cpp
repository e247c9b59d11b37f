// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ShortcutTest.h"

#include <tuple>

namespace pallistrom::e2e {

namespace {

const std::string line = "alpha beta gamma delta";
const TextState betweenWords{.text = line, .cursor = 11};
const TextState insideAWord{.text = line, .cursor = 13};
const TextState atTheStart{.text = line, .cursor = 0};
const TextState atTheEnd{.text = line, .cursor = 22};

/// One shortcut at one place.
class EachShortcut : public ShortcutTest,
                     public testing::WithParamInterface<std::tuple<Place, Shortcut>> {
protected:
    void SetUp() override { setUpDesks(std::get<Place>(GetParam())); }

    static const Shortcut& shortcut() { return std::get<Shortcut>(GetParam()); }

    static TextState afterEditingKeys(const TextState& start) {
        return withoutProgram(start, shortcut().editingKeys);
    }

    static std::string pressedAndReleased() {
        return shortcut().pressed() + ' ' + shortcut().keyReleasedFirst();
    }
};

/// Tells whether `end` is `start` without some text on the shortcut's side of the cursor.
bool deletesOnItsSide(const Shortcut& shortcut, const TextState& start, const TextState& end) {
    const auto length = [](const TextState& state) {
        return static_cast<int>(state.text.size());
    };
    const int deleted = length(start) - length(end);
    TextState expected = start;
    if (shortcut.deletesToTheLeft) {
        expected.cursor -= deleted;
    }
    if (deleted <= 0 || expected.cursor < 0 || expected.cursor + deleted > length(start)) {
        return false;
    }
    expected.text.erase(static_cast<std::size_t>(expected.cursor),
                        static_cast<std::size_t>(deleted));
    return end == expected;
}

TEST_P(EachShortcut, doesWhatThePlatformsEditingKeysDo) {
    switchOnOnly({shortcut().id});
    for (const TextState& start : {betweenWords, insideAWord}) {
        const TextState expected = afterEditingKeys(start);
        EXPECT_PRED3(deletesOnItsSide, shortcut(), start, expected);
        play(start, pressedAndReleased());
        expectEnd(expected);
    }
}

TEST_P(EachShortcut, leavesTheKeysToTheFieldWhileSwitchedOff) {
    switchOnOnly({});
    const TextState expected = withoutProgram(betweenWords, pressedAndReleased());
    play(betweenWords, pressedAndReleased());
    expectEnd(expected);
}

TEST_P(EachShortcut, firesWhicheverKeyIsReleasedFirst) {
    switchOnOnly({shortcut().id});
    const TextState expected = afterEditingKeys(betweenWords);
    for (const std::string& released :
         {shortcut().keyReleasedFirst(), shortcut().modifierReleasedFirst()}) {
        SCOPED_TRACE(released);
        play(betweenWords, shortcut().pressed() + ' ' + released);
        expectEnd(expected);

        // The same by somebody who takes more time than the program.
        play(betweenWords, shortcut().pressed());
        EXPECT_EQ(desk().field.waitFor(expected), expected);
        desk().keys.play(released);
        expectEnd(expected);
    }
}

TEST_P(EachShortcut, firesWithShiftHeldToo) {
    switchOnOnly({shortcut().id});
    const TextState expected = afterEditingKeys(betweenWords);
    for (const std::string& shifted : {"+shift " + pressedAndReleased() + " -shift",
                                       '+' + shortcut().modifier + " +shift +" + shortcut().key +
                                           " -shift " + shortcut().keyReleasedFirst()}) {
        SCOPED_TRACE(shifted);
        play(betweenWords, shifted);
        expectEnd(expected);
    }
}

TEST_P(EachShortcut, firesAgainAndAgainWhileHeld) {
    switchOnOnly({shortcut().id});
    const TextState& start = shortcut().deletesToTheLeft ? atTheEnd : atTheStart;
    play(start, shortcut().pressed());
    EXPECT_EQ(desk().field.waitFor(TextState{}), TextState{});
    desk().keys.play(shortcut().keyReleasedFirst());
    expectEnd({});
}

TEST_P(EachShortcut, followsItsSwitchWhileTheProgramRuns) {
    const TextState whileOff = withoutProgram(betweenWords, pressedAndReleased());
    const TextState whileOn = afterEditingKeys(betweenWords);
    switchOnOnly({});
    for (const bool isOn : {false, true, false}) {
        SCOPED_TRACE(isOn ? "on" : "off");
        desk().program->setSwitch(shortcut().id, isOn);
        ASSERT_TRUE(isOn ? desk().program->waitUntilGrabbed(shortcut().grab)
                         : desk().program->waitUntilReleased(shortcut().grab));
        play(betweenWords, pressedAndReleased());
        expectEnd(isOn ? whileOn : whileOff);
    }
}

std::string nameOf(const testing::TestParamInfo<EachShortcut::ParamType>& info) {
    return std::get<Shortcut>(info.param).name;
}

auto at(const Place& place) {
    return testing::Combine(testing::Values(place), testing::ValuesIn(allShortcuts()));
}

constexpr Lines many = Lines::Many;

INSTANTIATE_TEST_SUITE_P(Gtk3TextView,
                         EachShortcut,
                         at({"field-gtk3", Keyboard::Device, many}),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(Gtk4TextView,
                         EachShortcut,
                         at({"field-gtk4", Keyboard::Device, many}),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(Qt6TextEdit,
                         EachShortcut,
                         at({"field-qt6", Keyboard::Device, many}),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(Gtk3Keyboard, EachShortcut, at({"field-gtk3", Keyboard::Device}), nameOf);
INSTANTIATE_TEST_SUITE_P(Gtk3FakedKeys, EachShortcut, at({"field-gtk3", Keyboard::Faked}), nameOf);
INSTANTIATE_TEST_SUITE_P(Gtk4Keyboard, EachShortcut, at({"field-gtk4", Keyboard::Device}), nameOf);
INSTANTIATE_TEST_SUITE_P(Gtk4FakedKeys, EachShortcut, at({"field-gtk4", Keyboard::Faked}), nameOf);
INSTANTIATE_TEST_SUITE_P(Qt6Keyboard, EachShortcut, at({"field-qt6", Keyboard::Device}), nameOf);
INSTANTIATE_TEST_SUITE_P(Qt6FakedKeys, EachShortcut, at({"field-qt6", Keyboard::Faked}), nameOf);

} // namespace

} // namespace pallistrom::e2e
