// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Deadline.h"
#include "DesktopTest.h"
#include "Field.h"
#include "Screenshot.h"
#include "Shortcut.h"
#include "Tools.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

namespace pallistrom::e2e {

namespace {

constexpr const char* pane = "Accessibility Access";
constexpr const char* window = "Applications";
constexpr const char* leaveAlone = "Leave this application alone";
constexpr const char* application = "field-qt6"; // by the class of its window

/// The list of applications, opened by a person who was in a text field just before.
class DesktopApplications : public DesktopTest {
protected:
    void SetUp() override {
        const std::string missing = missingPrograms({fieldProgram});
        if (!missing.empty()) {
            GTEST_SKIP() << missing;
        }
        // All windows beside each other: this window manager brings none to the front for a click.
        start({"-screen", "0", "1600x1200x24"});
        if (IsSkipped()) {
            return;
        }
        launch();
        ASSERT_TRUE(windowIsShown(guide)) << log();
        EXPECT_EQ(thing(guide, "label", "Step 1 of 4").name, "Step 1 of 4");
        keys->press("Return");
        EXPECT_EQ(thing(guide, "label", "Step 2 of 4").name, "Step 2 of 4");
    }

    /// From the guide's button to the pane, and to a text field.
    void openPane() {
        click(thing(guide, "push button", "Open Accessibility Access…"));
        ASSERT_TRUE(windowIsShown(pane));
        startField();
    }

    void startField() {
        screen->closeWindow(guide);
        ASSERT_TRUE(windowIsGone(guide));
        field.emplace(fieldProgram, display->name());
    }

    void openApplications() const {
        click(thing(pane, "push button", "Applications…"));
        ASSERT_TRUE(windowIsShown(window));
        ASSERT_EQ(thing(window, "table cell", application).name, application);
    }

    // Then the text field gets the keyboard again.
    void closeApplications() const {
        click(thing(window, "push button", "Close"));
        ASSERT_TRUE(windowIsGone(window));
        screen->bringToFront("Text field");
    }

    /// Clicks on the tick of an application in the list.
    void clickTick(const std::string& name) const {
        constexpr int tick = 8; // From the left end to the middle of it.
        const Accessible cell = thing(window, "table cell", name);
        screen->click(cell.left + tick, cell.y, 1);
    }

    [[nodiscard]] bool
    becomes(bool isTicked, const std::string& role, const std::string& name) const {
        return waitUntil([&] {
            const auto found = reader->find(window, role, name);
            return found && found->isChecked() == isTicked;
        });
    }

    // What is stored, once it is this.
    [[nodiscard]] std::string choices(const std::string& wanted) const {
        const auto read = [this] {
            std::ifstream file{bus->home().configFolder() / "pallistrom" / "applications.ini"};
            return std::string{std::istreambuf_iterator<char>{file}, {}};
        };
        static_cast<void>(waitUntil([&] { return read() == wanted; }));
        return read();
    }

    // Types control-W after two words, and a letter once the text is `before`.
    [[nodiscard]] std::string typed(const std::string& before) {
        field->set({.text = "alpha beta", .cursor = 10});
        keys->play("+ctrl +w -w -ctrl");
        const auto isText = [](const std::string& text) {
            return [text](const TextState& state) {
                return state.text == text;
            };
        };
        static_cast<void>(field->waitFor(isText(before)));
        keys->play("+x -x");
        return field->waitFor(isText(before + "x")).text;
    }

    const std::string fieldProgram = std::string{FIELD_FOLDER} + "/field-qt6";
    const KeyCombination controlW = allShortcuts()[0].grab;
    std::optional<Field> field;
};

TEST_F(DesktopApplications, areLeftAloneByAClickAndNoMoreByAnother) {
    openPane();
    openApplications();
    EXPECT_TRUE(becomes(false, "table cell", application));
    EXPECT_TRUE(becomes(false, "check box", leaveAlone));
    clickTick(application);
    EXPECT_EQ(choices("[General]\nfield-qt6=true\n"), "[General]\nfield-qt6=true\n");
    EXPECT_TRUE(becomes(true, "table cell", application));
    EXPECT_TRUE(becomes(true, "check box", leaveAlone));
    saveScreenshot(display->name(), PICTURE_FOLDER "/applications.png");
    closeApplications();
    EXPECT_TRUE(isReleasedSoon(controlW));
    EXPECT_EQ(typed("alpha beta"), "alpha betax");

    openApplications();
    EXPECT_TRUE(becomes(true, "check box", leaveAlone));
    click(thing(window, "check box", leaveAlone));
    EXPECT_EQ(choices("[General]\nfield-qt6=false\n"), "[General]\nfield-qt6=false\n");
    EXPECT_TRUE(becomes(false, "table cell", application));
    closeApplications();
    EXPECT_TRUE(isGrabbedSoon(controlW));
    EXPECT_EQ(typed("alpha "), "alpha x");
}

TEST_F(DesktopApplications, includeThoseThatAreKnownFromTheStart) {
    openPane();
    openApplications();
    EXPECT_TRUE(becomes(true, "table cell", "xterm"));
    clickTick("xterm");
    EXPECT_EQ(choices("[General]\nxterm=false\n"), "[General]\nxterm=false\n");
    EXPECT_TRUE(becomes(false, "table cell", "xterm"));
    EXPECT_TRUE(becomes(true, "table cell", "uxterm"));
}

TEST_F(DesktopApplications, areOpenedAndChosenWithoutAMouse) {
    EXPECT_TRUE(reader->press(guide, "push button", "Open Accessibility Access…"));
    ASSERT_TRUE(windowIsShown(pane));
    startField();
    EXPECT_TRUE(reader->press(pane, "push button", "Applications…"));
    ASSERT_TRUE(windowIsShown(window));
    ASSERT_EQ(thing(window, "table cell", application).name, application);

    std::vector<std::string> lines;
    for (const Accessible& accessible : reader->window(window)) {
        // What only holds other things, and the second cell of headings, which nobody sees.
        if (accessible.role != "filler" && accessible.role != "panel" &&
            (accessible.role != "table cell" || !accessible.name.empty())) {
            lines.push_back(accessible.role + " '" + accessible.name + "' " + accessible.states);
        }
    }
    const std::vector<std::string> top{
        "dialog 'Applications' ",
        ("label 'Applications with a tick are left alone: while one of them is in front, it gets "
         "your keys as you press them.' "),
        "text 'Search' focusable",
        "tree 'Applications' focusable",
        "table column header 'Leave alone' ",
        "table column header 'Why' ",
        "table cell 'In front just now' focusable",
        "table cell 'field-qt6' focusable",
        "table cell 'Known from the start' focusable",
        "table cell 'xterm' checked focusable",
        "table cell 'a terminal' focusable",
    };
    const std::vector<std::string> bottom{
        "label 'field-qt6' ",
        "check box 'Leave this application alone' focusable",
        "push button 'Close' focusable",
    };
    ASSERT_GT(lines.size(), top.size() + bottom.size());
    EXPECT_EQ(std::vector(lines.begin(), std::next(lines.begin(), std::ssize(top))), top);
    EXPECT_EQ(std::vector(std::prev(lines.end(), std::ssize(bottom)), lines.end()), bottom);
    EXPECT_EQ(thing(window, "check box", leaveAlone).description, application);

    EXPECT_TRUE(reader->press(window, "check box", leaveAlone));
    EXPECT_EQ(choices("[General]\nfield-qt6=true\n"), "[General]\nfield-qt6=true\n");
    EXPECT_TRUE(reader->press(window, "push button", "Close"));
    ASSERT_TRUE(windowIsGone(window));
    EXPECT_TRUE(isReleasedSoon(controlW));
    EXPECT_EQ(typed("alpha beta"), "alpha betax");
}

} // namespace

} // namespace pallistrom::e2e
