// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "engine/tapCallback.h"

#include "EngineTest.h"
#include "engine/KeyCode.h"

#include <array>
#include <string>
#include <vector>

namespace pallistrom {

namespace {

using fake::Stroke;
using Strokes = std::vector<Stroke>;

constexpr CGEventFlags shift = 0x20000;
constexpr CGEventFlags control = 0x40000;
constexpr CGEventFlags option = 0x80000;
constexpr CGEventFlags command = 0x100000;
constexpr CGEventFlags capsLock = 0x10000;
constexpr CGEventFlags function = 0x800000;
constexpr CGEventFlags deviceBits = 0x21;

ShortcutDef make(std::string_view id, ShortcutAction action) {
    return {.id = id,
            .title = {},
            .subtitle = {},
            .keyLabel = {},
            .triggerKeyCode = KeyCode::w,
            .requiredFlags = control,
            .forbiddenFlags = option,
            .action = action,
            .defaultEnabled = true,
            .recommended = false};
}

void switchAll(bool on) {
    for (const ShortcutDef& shortcut : ShortcutLibrary::all) {
        Preferences::setEnabled(shortcut.id, on);
    }
}

class Key : public EngineTest {
protected:
    Key() { startWith(ShortcutLibrary::all); }
};

// --- What passes.

struct PassCase {
    std::string name;
    std::int64_t keyCode;
    CGEventFlags flags;
};

void PrintTo(const PassCase& c, std::ostream* out) {
    *out << c.name;
}

class UntouchedKey : public Key, public testing::WithParamInterface<PassCase> {};

TEST_P(UntouchedKey, passesDownAndUpWithAllSwitchesOn) {
    switchAll(true);
    const auto [name, keyCode, flags] = GetParam();
    EXPECT_EQ(*down(keyCode, flags), (Stroke{keyCode, flags, true}));
    EXPECT_EQ(*up(keyCode, flags), (Stroke{keyCode, flags, false}));
    EXPECT_TRUE(platform.posted.empty());
}

INSTANTIATE_TEST_SUITE_P(
    ,
    UntouchedKey,
    testing::Values(PassCase{"w", KeyCode::w, 0},
                    PassCase{"shiftW", KeyCode::w, shift},
                    PassCase{"commandW", KeyCode::w, command},
                    PassCase{"optionW", KeyCode::w, option},
                    PassCase{"controlOptionW", KeyCode::w, control | option},
                    PassCase{"controlCommandW", KeyCode::w, control | command},
                    PassCase{"controlOptionU", KeyCode::u, control | option},
                    PassCase{"controlCommandK", KeyCode::k, control | command},
                    PassCase{"d", KeyCode::d, 0},
                    PassCase{"controlD", KeyCode::d, control},
                    PassCase{"controlOptionD", KeyCode::d, control | option},
                    PassCase{"commandOptionD", KeyCode::d, command | option},
                    PassCase{"controlA", 0, control},
                    PassCase{"ourOwnOptionDelete", KeyCode::delete_, option},
                    PassCase{"ourOwnShiftCommandRight", KeyCode::right, shift | command},
                    PassCase{"ourOwnOptionForwardDelete", KeyCode::forwardDelete, option},
                    PassCase{"aKeyCodeBelowAll", -1, control},
                    PassCase{"aKeyCodeAboveAll", 65536 + 13, control}),
    [](const auto& test) { return test.param.name; });

// --- What is rewritten.

struct RewriteCase {
    std::string name;
    std::int64_t keyCode;
    CGEventFlags flags;
    std::int64_t newKeyCode;
    CGEventFlags newFlags;
};

void PrintTo(const RewriteCase& c, std::ostream* out) {
    *out << c.name;
}

class RewrittenKey : public Key, public testing::WithParamInterface<RewriteCase> {};

TEST_P(RewrittenKey, becomesTheEditingKeyWithExactlyItsModifiersDownAndUp) {
    switchAll(true);
    const RewriteCase& c = GetParam();
    EXPECT_EQ(*down(c.keyCode, c.flags), (Stroke{c.newKeyCode, c.newFlags, true}));
    EXPECT_EQ(*up(c.keyCode, c.flags), (Stroke{c.newKeyCode, c.newFlags, false}));
    EXPECT_TRUE(platform.posted.empty());
}

INSTANTIATE_TEST_SUITE_P(
    ,
    RewrittenKey,
    testing::Values(RewriteCase{"controlW", KeyCode::w, control, 51, option},
                    RewriteCase{"controlShiftW", KeyCode::w, control | shift, 51, option},
                    RewriteCase{"controlCapsLockW", KeyCode::w, control | capsLock, 51, option},
                    RewriteCase{"controlFnW", KeyCode::w, control | function, 51, option},
                    RewriteCase{
                        "controlWithDeviceBitsW", KeyCode::w, control | deviceBits, 51, option},
                    RewriteCase{"controlU", KeyCode::u, control, 51, command},
                    RewriteCase{"controlShiftU", KeyCode::u, control | shift, 51, command},
                    RewriteCase{"optionD", KeyCode::d, option, 117, option},
                    RewriteCase{"optionShiftD", KeyCode::d, option | shift, 117, option},
                    RewriteCase{"optionCapsLockD", KeyCode::d, option | capsLock, 117, option}),
    [](const auto& test) { return test.param.name; });

TEST_F(Key, isRewrittenWithEachRepeat) {
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(*down(KeyCode::w, control), (Stroke{51, option, true}));
    }
    EXPECT_EQ(*up(KeyCode::w, control), (Stroke{51, option, false}));
}

TEST_F(Key, isDecidedByTheModifiersOfItsOwnMoment) {
    EXPECT_EQ(*down(KeyCode::w, control), (Stroke{51, option, true}));
    EXPECT_EQ(*up(KeyCode::w, 0), (Stroke{KeyCode::w, 0, false}));
    // The other way round: a release on its own is rewritten.
    EXPECT_EQ(*down(KeyCode::w, 0), (Stroke{KeyCode::w, 0, true}));
    EXPECT_EQ(*up(KeyCode::w, control), (Stroke{51, option, false}));
}

// --- What is swallowed.

const Strokes deleteToLineEnd{
    {124, shift | command, true}, {124, shift | command, false}, {51, 0, true}, {51, 0, false}};

TEST_F(Key, isReplacedByASequenceAndItsReleaseSwallowed) {
    Preferences::setEnabled("ctrlK", true);
    EXPECT_EQ(down(KeyCode::k, control), nullptr);
    EXPECT_EQ(platform.posted, deleteToLineEnd);
    EXPECT_EQ(up(KeyCode::k, control), nullptr);
    EXPECT_EQ(platform.posted, deleteToLineEnd);
    EXPECT_EQ(platform.liveObjects, 0U);
}

TEST_F(Key, isReplacedByTheWholeSequenceWithEachRepeat) {
    Preferences::setEnabled("ctrlK", true);
    Strokes expected;
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(down(KeyCode::k, control | shift), nullptr);
        expected.insert(expected.end(), deleteToLineEnd.begin(), deleteToLineEnd.end());
    }
    EXPECT_EQ(up(KeyCode::k, control), nullptr);
    EXPECT_EQ(platform.posted, expected);
}

TEST_F(Key, makesOneEventSourceForEachSequence) {
    Preferences::setEnabled("ctrlK", true);
    static_cast<void>(down(KeyCode::k, control));
    static_cast<void>(up(KeyCode::k, control));
    EXPECT_EQ(platform.calls, std::vector<std::string>{"CGEventSourceCreate"});
}

TEST_F(Key, isReplacedEvenWithoutAnEventSource) {
    Preferences::setEnabled("ctrlK", true);
    platform.hasEventSources = false;
    EXPECT_EQ(down(KeyCode::k, control), nullptr);
    EXPECT_EQ(platform.posted, deleteToLineEnd);
}

TEST_F(Key, isReplacedByTheRestOfASequenceWhenAnEventCannotBeMade) {
    Preferences::setEnabled("ctrlK", true);
    for (std::size_t refused = 0; refused < deleteToLineEnd.size(); ++refused) {
        platform.posted.clear();
        platform.createdEvents = 0;
        platform.refusedEvents = {refused};
        EXPECT_EQ(down(KeyCode::k, control), nullptr);
        Strokes expected = deleteToLineEnd;
        expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(refused));
        EXPECT_EQ(platform.posted, expected) << refused;
    }
    EXPECT_EQ(platform.liveObjects, 0U);
}

TEST_F(Key, isSwallowedByAnEmptySequence) {
    const std::vector shortcuts{make("empty", ShortcutAction::sequence({}))};
    Preferences::setEnabled("empty", true);
    startWith(shortcuts);
    EXPECT_EQ(down(KeyCode::w, control), nullptr);
    EXPECT_EQ(up(KeyCode::w, control), nullptr);
    EXPECT_TRUE(platform.posted.empty());
}

// --- Switches and order.

TEST_F(Key, goesToTheApplicationWhileItsSwitchIsOff) {
    switchAll(false);
    for (const ShortcutDef& shortcut : ShortcutLibrary::all) {
        const Stroke stroke{shortcut.triggerKeyCode, shortcut.requiredFlags, true};
        EXPECT_EQ(*down(stroke.keyCode, stroke.flags), stroke) << shortcut.id;
    }
    EXPECT_TRUE(platform.posted.empty());
}

TEST_F(Key, goesToTheApplicationForShortcutsThatStartSwitchedOff) {
    EXPECT_EQ(*down(KeyCode::k, control), (Stroke{KeyCode::k, control, true}));
    EXPECT_EQ(*down(KeyCode::d, option), (Stroke{KeyCode::d, option, true}));
}

TEST_F(Key, followsItsSwitchFromOneEventToTheNext) {
    EXPECT_EQ(*down(KeyCode::w, control), (Stroke{51, option, true}));
    Preferences::setEnabled("ctrlW", false);
    EXPECT_EQ(*up(KeyCode::w, control), (Stroke{KeyCode::w, control, false}));
    Preferences::setEnabled("ctrlW", true);
    EXPECT_EQ(*down(KeyCode::w, control), (Stroke{51, option, true}));
}

TEST_F(Key, asksForEachSwitchInOrderUpToTheMatch) {
    static_cast<void>(down(KeyCode::u, control));
    EXPECT_EQ(platform.defaultsRead,
              (std::vector<std::string>{"shortcut.ctrlW.enabled", "shortcut.ctrlU.enabled"}));
    platform.defaultsRead.clear();
    static_cast<void>(down(0, 0));
    EXPECT_EQ(platform.defaultsRead,
              (std::vector<std::string>{"shortcut.ctrlW.enabled",
                                        "shortcut.ctrlU.enabled",
                                        "shortcut.ctrlK.enabled",
                                        "shortcut.altD.enabled"}));
}

TEST_F(Key, isTakenByTheFirstOfTwoShortcutsThatIsSwitchedOn) {
    const std::vector shortcuts{make("first", ShortcutAction::rewrite(1, 0)),
                                make("second", ShortcutAction::rewrite(2, 0))};
    Preferences::setEnabled("first", true);
    Preferences::setEnabled("second", true);
    startWith(shortcuts);
    EXPECT_EQ(down(KeyCode::w, control)->keyCode, 1);
    Preferences::setEnabled("first", false);
    EXPECT_EQ(down(KeyCode::w, control)->keyCode, 2);
}

TEST_F(Key, needsEveryRequiredModifier) {
    ShortcutDef both{.id = "both",
                     .title = {},
                     .subtitle = {},
                     .keyLabel = {},
                     .triggerKeyCode = 7,
                     .requiredFlags = control | shift,
                     .forbiddenFlags = 0,
                     .action = ShortcutAction::rewrite(8, 0),
                     .defaultEnabled = true,
                     .recommended = false};
    Preferences::setEnabled("both", true);
    startWith({&both, 1});
    EXPECT_EQ(down(7, control)->keyCode, 7);
    EXPECT_EQ(down(7, shift)->keyCode, 7);
    EXPECT_EQ(down(7, control | shift | option)->keyCode, 8);
}

TEST_F(Key, passesWhenThereAreNoShortcuts) {
    startWith({});
    EXPECT_EQ(*down(KeyCode::w, control), (Stroke{KeyCode::w, control, true}));
    EXPECT_TRUE(platform.defaultsRead.empty());
}

// --- What is no key press or release.

TEST_F(Key, isTheOnlyKindOfEventThatIsLookedAt) {
    switchAll(true);
    for (const CGEventType type :
         {0U, 1U, 9U, unsigned{kCGEventFlagsChanged}, 14U, 22U, 0xFFFFFFFDU}) {
        EXPECT_EQ(*platform.send(type, {KeyCode::w, control, true}),
                  (Stroke{KeyCode::w, control, true}))
            << type;
    }
    EXPECT_TRUE(platform.defaultsRead.empty());
    EXPECT_TRUE(platform.calls.empty());
}

TEST_F(Key, tapIsSwitchedOnAgainWhenTheSystemHasSwitchedItOff) {
    for (const CGEventType type : {kCGEventTapDisabledByTimeout, kCGEventTapDisabledByUserInput}) {
        platform.tapEnabled = false;
        EXPECT_EQ(*platform.send(type, {KeyCode::w, control, true}),
                  (Stroke{KeyCode::w, control, true}));
        EXPECT_TRUE(platform.tapEnabled) << type;
    }
}

TEST_F(Key, passesWithoutAPublishedController) {
    switchAll(true);
    tapController.reset();
    platform.tapEnabled = false;
    for (const CGEventType type : {kCGEventKeyDown,
                                   kCGEventKeyUp,
                                   kCGEventTapDisabledByTimeout,
                                   kCGEventTapDisabledByUserInput}) {
        EXPECT_EQ(*platform.send(type, {KeyCode::w, control, true}),
                  (Stroke{KeyCode::w, control, true}));
    }
    EXPECT_FALSE(platform.tapEnabled);
    EXPECT_TRUE(platform.calls.empty());
}

TEST_F(Key, tapThatDoesNotExistYetIsNotSwitchedOn) {
    tapController = std::make_shared<EventTapController>(ShortcutLibrary::all);
    platform.calls.clear();
    EXPECT_NE(platform.send(kCGEventTapDisabledByTimeout, {}), nullptr);
    EXPECT_TRUE(platform.calls.empty());
}

// --- Chords that cannot be posted.

class ImpossibleChord : public Key, public testing::WithParamInterface<std::int64_t> {};

TEST_P(ImpossibleChord, stopsTheProgramWithOneLogLine) {
    const std::array chords{KeyChord{.keyCode = GetParam(), .flags = 0}};
    const std::vector shortcuts{make("impossible", ShortcutAction::sequence(chords))};
    Preferences::setEnabled("impossible", true);
    startWith(shortcuts);
    EXPECT_DEATH(static_cast<void>(down(KeyCode::w, control)),
                 "^Pallistrom: the key code of a chord is not in 0\\.\\.65535\n$");
    // Its release posts nothing, and so has nothing to stop for.
    EXPECT_EQ(up(KeyCode::w, control), nullptr);
}

INSTANTIATE_TEST_SUITE_P(, ImpossibleChord, testing::Values(-1, 65536, INT64_MIN, INT64_MAX));

TEST_F(Key, canBeAnyThatFitsAChord) {
    const std::array chords{KeyChord{.keyCode = 0, .flags = 0},
                            KeyChord{.keyCode = 65535, .flags = 0}};
    const std::vector shortcuts{make("edges", ShortcutAction::sequence(chords))};
    Preferences::setEnabled("edges", true);
    startWith(shortcuts);
    EXPECT_EQ(down(KeyCode::w, control), nullptr);
    EXPECT_EQ(platform.posted,
              (Strokes{{0, 0, true}, {0, 0, false}, {65535, 0, true}, {65535, 0, false}}));
}

} // namespace

} // namespace pallistrom
