// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Browser.h"
#include "HeldKeys.h"
#include "Keys.h"
#include "Pallistrom.h"
#include "Shortcut.h"
#include "Tools.h"
#include "VirtualDisplay.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace pallistrom::e2e {

namespace {

struct Situation {
    explicit Situation(Keyboard keyboard)
        : program{display.name()}, browser{display.name()}, keys{display.name(), keyboard} {}

    VirtualDisplay display;
    Pallistrom program;
    Browser browser;
    Keys keys;
};

/// A browser, whose own Control-W closes the tab.
class Tabs : public testing::TestWithParam<Keyboard> {
protected:
    void SetUp() override {
        const std::string missing =
            missingPrograms({"Xvfb", "openbox", "xdotool", Browser::program, Pallistrom::path()});
        if (!missing.empty()) {
            GTEST_SKIP() << missing;
        }
        m_situation.emplace(GetParam());
        EXPECT_EQ(program().switchOnOnly({"ctrlW", "ctrlU", "ctrlK", "altD"}), nothing);
    }

    Pallistrom& program() { return m_situation->program; }

    Browser& browser() { return m_situation->browser; }

    void begin() {
        play('+' + Browser::startKey + " -" + Browser::startKey);
        EXPECT_EQ(browser().waitFor(Browser::start), Browser::start);
    }

    void play(const std::string& script) { m_situation->keys.play(script); }

    void expectNothingDown() {
        const XConnection connection{m_situation->display.name()};
        EXPECT_TRUE(waitUntil([&] { return heldKeys(connection).empty(); }));
    }

    static inline const std::vector<std::string> nothing;

private:
    std::optional<Situation> m_situation;
};

const TextState withoutWordToTheLeft{.text = "alpha gamma delta", .cursor = 6};
const TextState withoutAllToTheLeft{.text = "gamma delta", .cursor = 0};
const TextState withoutAllToTheRight{.text = "alpha beta ", .cursor = 11};
const TextState withoutWordToTheRight{.text = "alpha beta  delta", .cursor = 11};

TEST_P(Tabs, surviveTheShortcutsInTheirTextAreas) {
    struct Case {
        std::string script;
        TextState expected;
    };

    for (const Case& each : {Case{"+ctrl +w -w -ctrl", withoutWordToTheLeft},
                             Case{"+ctrl +u -u -ctrl", withoutAllToTheLeft},
                             Case{"+ctrl +k -k -ctrl", withoutAllToTheRight},
                             Case{"+alt +d -d -alt", withoutWordToTheRight}}) {
        SCOPED_TRACE(each.script);
        begin();
        play(each.script);
        EXPECT_EQ(browser().waitFor(each.expected), each.expected);
        expectNothingDown();
    }
}

TEST_P(Tabs, surviveControlWWhileItIsHeld) {
    begin();
    play("+ctrl +w");
    EXPECT_EQ(browser().waitFor(withoutAllToTheLeft), withoutAllToTheLeft);
    play("-w -ctrl");
    expectNothingDown();
    // Still there, and taking keys.
    begin();
}

TEST_P(Tabs, areClosedByControlWThatIsSwitchedOff) {
    EXPECT_EQ(program().switchOnOnly({}), nothing);
    begin();
    play("+ctrl +w -w -ctrl");
    EXPECT_TRUE(browser().waitUntilClosed());
}

INSTANTIATE_TEST_SUITE_P(BrowserKeyboard, Tabs, testing::Values(Keyboard::Device));
INSTANTIATE_TEST_SUITE_P(BrowserFakedKeys, Tabs, testing::Values(Keyboard::Faked));

} // namespace

} // namespace pallistrom::e2e
