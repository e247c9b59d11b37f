// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "HeldKeys.h"
#include "ShortcutTest.h"
#include "XConnection.h"

#include <algorithm>
#include <csignal>

namespace pallistrom::e2e {

namespace {

/// The program in trouble, with the keys of a real keyboard.
class ProgramInTrouble : public ShortcutTest {
protected:
    void SetUp() override {
        setUpDesks({"field-qt6", Keyboard::Device});
        if (!IsSkipped()) {
            switchOnAll();
        }
    }

    /// The keys that are down for windows and on keyboards. What the server remembers of keys that
    /// a dead program has pressed is neither.
    static bool nothingIsDown() {
        const auto keys = heldKeys(XConnection{desk().display.name()});
        return std::all_of(keys.begin(), keys.end(), [](const std::string& key) {
            return key.find("XTEST") != std::string::npos;
        });
    }
};

TEST_F(ProgramInTrouble, thatIsStoppedHoldsUpNoKeyButItsOwn) {
    desk().program->signal(SIGSTOP);
    const Deadline patience{std::chrono::milliseconds{1500}};
    play({}, "+ctrl +w -w -ctrl");
    desk().keys.type("Typed on.");
    const TextState typed{.text = "Typed on.", .cursor = 9};
    EXPECT_EQ(desk().field.waitFor(typed), typed);
    EXPECT_TRUE(waitUntil(nothingIsDown));

    // When it goes on, its key comes too late to delete what was typed after it; the next one does
    // what it should.
    EXPECT_TRUE(waitUntil([&] { return patience.hasPassed(); }));
    desk().program->signal(SIGCONT);
    play({.text = "alpha beta gamma", .cursor = 10}, "+ctrl +u -u -ctrl");
    expectEnd({.text = " gamma", .cursor = 0});
}

TEST_F(ProgramInTrouble, thatIsKilledWithAChordHeldLeavesNoKeyDown) {
    for (const Shortcut& shortcut : allShortcuts()) {
        SCOPED_TRACE(shortcut.name);
        play({.text = "alpha beta", .cursor = 6}, shortcut.pressed());
        static_cast<void>(
            desk().field.waitFor([](const TextState& state) { return state.text.size() < 10; }));
        desk().program->signal(SIGKILL);
        desk().keys.play(shortcut.keyReleasedFirst());
        EXPECT_TRUE(waitUntil(nothingIsDown));

        play({}, "+w -w");
        EXPECT_EQ(desk().field.waitFor({.text = "w", .cursor = 1}),
                  (TextState{.text = "w", .cursor = 1}));
        desk().program.emplace(desk().display.name());
        switchOnAll();
    }
}

} // namespace

} // namespace pallistrom::e2e
