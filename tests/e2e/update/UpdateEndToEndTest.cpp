// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Deadline.h"
#include "DesktopTest.h"
#include "Field.h"
#include "Tools.h"

#include <gmock/gmock.h>

#include <optional>
#include <string>
#include <vector>

namespace pallistrom::e2e {

namespace {

using testing::ElementsAre;

constexpr const char* title = "Software Update";

/// The conversation in a session of its own, led by the test, answered with mouse and keyboard.
class Update : public DesktopTest {
protected:
    void SetUp() override {
        programFile = UPDATE_CONVERSATION;
        DesktopTest::SetUp();
        if (!IsSkipped()) {
            launch();
        }
    }

    /// Lets a step be shown, and waits until its headline is there for everybody.
    void show(const std::string& step, const std::string& headline) {
        lead(step);
        EXPECT_EQ(thing(title, "label", headline).name, headline) << log();
    }

    void lead(const std::string& step) {
        program->writeLine(step);
        EXPECT_EQ(said(), "done " + step.substr(0, step.find(' '))) << log();
    }

    std::string said() { return program->readLine().value_or("nothing"); }

    void clickOn(const std::string& button) const {
        const Accessible found = thing(title, "push button", button);
        EXPECT_EQ(found.name, button);
        click(found);
    }

    [[nodiscard]] std::vector<std::string> rolesAndNames() const {
        std::vector<std::string> lines;
        for (const Accessible& accessible : reader->window(title)) {
            if (accessible.role != "filler") {
                lines.push_back(accessible.role + " '" + accessible.name + '\'');
            }
        }
        return lines;
    }

    const std::string offered = "A new version of Pallistrom is here";
};

TEST_F(Update, isWalkedFromTheCheckToTheRestartByClicks) {
    show("checking", "Checking for updates…");
    show("offer 2.0", offered);
    clickOn("Install Update");
    EXPECT_EQ(said(), "install");
    EXPECT_TRUE(screen->hasWindow(title)) << "it is one window that changes";
    show("download", "Downloading Pallistrom 2.0…");
    lead("progress 1000000 4000000");
    EXPECT_EQ(thing(title, "label", "1.0 MB of 4.0 MB").name, "1.0 MB of 4.0 MB");
    show("installing", "Installing Pallistrom 2.0…");
    show("installed 2.0", "Pallistrom 2.0 is installed");
    clickOn("Restart Now");
    EXPECT_EQ(said(), "restart");
    EXPECT_TRUE(windowIsGone(title));
}

TEST_F(Update, canBeLeftByAClickAtEachStep) {
    show("checking", "Checking for updates…");
    clickOn("Cancel");
    EXPECT_EQ(said(), "cancelled");
    show("up-to-date 1.0", "You're up to date");
    clickOn("OK");
    EXPECT_TRUE(windowIsGone(title));
    for (const auto& [button, answer] :
         {std::pair{"Skip This Version", "skip"}, std::pair{"Remind Me Later", "later"}}) {
        show("offer 2.0", offered);
        clickOn(button);
        EXPECT_EQ(said(), answer);
        EXPECT_TRUE(windowIsGone(title));
    }
    show("download", "Downloading Pallistrom 2.0…");
    clickOn("Cancel");
    EXPECT_EQ(said(), "cancelled");
    show("installed 2.0", "Pallistrom 2.0 is installed");
    clickOn("Later");
    EXPECT_EQ(said(), "no restart");
    show("failure There is no room.", "Could not download the update");
    clickOn("Close");
    EXPECT_TRUE(windowIsGone(title));
    EXPECT_TRUE(program->isRunning());
}

TEST_F(Update, isAnsweredWithTheKeyboard) {
    show("checking", "Checking for updates…");
    show("offer 2.0", offered);
    keys->press("Return");
    EXPECT_EQ(said(), "install");
    show("download", "Downloading Pallistrom 2.0…");
    keys->press("Return");
    keys->press("Escape");
    EXPECT_EQ(said(), "cancelled") << "by Escape, and by nothing before it";
    show("checking", "Checking for updates…");
    show("offer 2.0", offered);
    keys->press("Escape");
    EXPECT_EQ(said(), "later");
    show("checking", "Checking for updates…");
    show("offer 2.0", offered);
    keys->play("+shift +Tab -Tab -shift");
    keys->press("Return");
    EXPECT_EQ(said(), "later") << "the button beside";
}

TEST_F(Update, staysInTheBackgroundUnlessItIsAskedFor) {
    const std::string fieldProgram = std::string{FIELD_FOLDER} + "/field-qt6";
    if (const auto missing = missingPrograms({fieldProgram}); !missing.empty()) {
        GTEST_SKIP() << missing;
    }
    Field field{fieldProgram, display->name()};
    field.set({.text = "", .cursor = 0});
    show("offer 2.0", offered);
    keys->type("still mine");
    keys->press("Return");
    const TextState typed{.text = "still mine", .cursor = 10};
    EXPECT_EQ(field.waitFor(typed), typed);
    program->writeLine("front");
    EXPECT_EQ(said(), "there");
    EXPECT_EQ(said(), "done front");
    // The window manager takes its time; the first Escape that gets there answers.
    EXPECT_TRUE(waitUntil([&] {
        keys->press("Escape");
        return !screen->hasWindow(title);
    }));
    EXPECT_EQ(said(), "later") << "what was typed before was no answer";
}

TEST_F(Update, closesWithItsWindowAndTheProgramGoesOn) {
    show("offer 2.0", offered);
    screen->closeWindow(title);
    EXPECT_EQ(said(), "later");
    EXPECT_TRUE(windowIsGone(title));
    show("installing", "Installing Pallistrom 2.0…");
    screen->closeWindow(title);
    EXPECT_TRUE(windowIsGone(title));
    show("installed 2.0", "Pallistrom 2.0 is installed");
    lead("dismiss");
    EXPECT_TRUE(windowIsGone(title));
    EXPECT_TRUE(program->isRunning());
}

TEST_F(Update, copiesTheCommandOfThePackageManager) {
    show("package sudo get it", "Get Pallistrom 2.0");
    clickOn("Copy Command");
    EXPECT_EQ(thing(title, "push button", "Copied").name, "Copied");
    clickOn("Close");
    EXPECT_TRUE(windowIsGone(title));
}

TEST_F(Update, startsTheProgramAgainInItsPlace) {
    show("installed 2.0", "Pallistrom 2.0 is installed");
    const pid_t process = program->id();
    lead("restart");
    EXPECT_TRUE(windowIsGone(title));
    program->writeLine("front");
    EXPECT_EQ(said(), "nothing") << "it has begun anew";
    EXPECT_EQ(said(), "done front");
    EXPECT_EQ(program->id(), process);
    EXPECT_TRUE(waitUntil([&] { return activate("none"); })) << "its name is its own again";
    show("checking", "Checking for updates…");
    EXPECT_EQ(log(), "");
}

TEST_F(Update, tellsOfEverythingInAnOffer) {
    show("offer 2.0", offered);
    EXPECT_THAT(rolesAndNames(),
                ElementsAre("dialog 'Software Update'",
                            "label 'A new version of Pallistrom is here'",
                            "label 'Pallistrom 2.0 is ready; you have 1.0.'",
                            "text 'What is new'",
                            "push button 'Skip This Version'",
                            "push button 'Remind Me Later'",
                            "push button 'Install Update'"));
}

} // namespace

} // namespace pallistrom::e2e
