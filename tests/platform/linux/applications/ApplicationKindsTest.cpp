// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/ApplicationKinds.h"

#include "EventLoop.h"
#include "SettingsFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;

class ApplicationKindsTest : public testing::Test {
protected:
    [[nodiscard]] FrontApplication kindOf(const std::string& instance, const std::string& name) {
        return kinds.kindOf({.instance = instance, .name = name});
    }

    [[nodiscard]] bool isLeftAlone(const std::string& instance, const std::string& name) {
        return kinds.isLeftAlone({.instance = instance, .name = name});
    }

    EventLoop loop;
    SettingsFolder folder;
    ApplicationChoices choices{folder.name()};
    ApplicationKinds kinds{DesktopEntries({folder.path()}), choices};
};

TEST_F(ApplicationKindsTest, leaveTerminalsEditorsAndWindowsOntoOtherSystemsAlone) {
    EXPECT_TRUE(isLeftAlone("xterm", "XTerm"));
    EXPECT_TRUE(isLeftAlone("urxvt", "URxvt"));
    EXPECT_TRUE(isLeftAlone("emacs", "Emacs"));
    EXPECT_TRUE(isLeftAlone("emacs-gtk", "Emacs-gtk"));
    EXPECT_TRUE(isLeftAlone("gvim", "Gvim"));
    EXPECT_TRUE(isLeftAlone("jetbrains-idea-ce", "jetbrains-idea-ce"));
    EXPECT_TRUE(isLeftAlone("org.remmina.Remmina", "org.remmina.Remmina"));
    EXPECT_TRUE(isLeftAlone("VirtualBoxVM", "VirtualBox Machine"));
    EXPECT_TRUE(isLeftAlone("qemu-system-x86_64", "Qemu-system-x86_64"));
    EXPECT_TRUE(isLeftAlone("Xephyr", "Xephyr"));
}

TEST_F(ApplicationKindsTest, leaveNobodyElseAlone) {
    EXPECT_FALSE(isLeftAlone("Navigator", "firefox"));
    EXPECT_FALSE(isLeftAlone("chromium", "Chromium"));
    EXPECT_FALSE(isLeftAlone("steam", "Steam"));
    EXPECT_FALSE(isLeftAlone("gedit", "Gedit"));
    EXPECT_FALSE(isLeftAlone("my-xterm-manual", "Reader"));
}

TEST_F(ApplicationKindsTest, selectWordsWhereNoKeyDeletesThem) {
    EXPECT_EQ(kindOf("notepad.exe", "notepad.exe"), FrontApplication::EditsBySelection);
    EXPECT_EQ(kindOf("tk", "Tk"), FrontApplication::EditsBySelection);
    EXPECT_EQ(kindOf("git-gui", "Git-gui"), FrontApplication::EditsBySelection);
}

TEST_F(ApplicationKindsTest, takeAnApplicationThatNobodyKnowsForTheUsualKind) {
    EXPECT_EQ(kindOf("", ""), FrontApplication::TakesEditingKeys);
    EXPECT_EQ(kindOf(std::string(100000, 'x'), "\xff\xfe*[?"), FrontApplication::TakesEditingKeys);
}

TEST_F(ApplicationKindsTest, knowAnApplicationByEitherPartOfTheClass) {
    EXPECT_TRUE(isLeftAlone("anything", "XTerm"));
    EXPECT_TRUE(isLeftAlone("kitty", "work"));
}

TEST_F(ApplicationKindsTest, knowTerminalsByTheirDesktopEntries) {
    std::ofstream(folder.path() / "someterm.desktop")
        << "[Desktop Entry]\nName=Some\nCategories=TerminalEmulator;\n";
    EXPECT_TRUE(isLeftAlone("", "SomeTerm"));
}

TEST_F(ApplicationKindsTest, doWhatTheUserHasSaid) {
    choices.setLeftAlone("Firefox", true);
    EXPECT_TRUE(isLeftAlone("Navigator", "firefox"));
    choices.setLeftAlone("xterm", false);
    EXPECT_FALSE(isLeftAlone("xterm", "XTerm"));
    choices.setLeftAlone("firefox", false);
    EXPECT_FALSE(isLeftAlone("Navigator", "firefox"));
}

TEST_F(ApplicationKindsTest, doWhatTheUserHasSaidOfABuiltInPattern) {
    choices.setLeftAlone("jetbrains-*", false);
    EXPECT_FALSE(isLeftAlone("jetbrains-idea-ce", "jetbrains-idea-ce"));
    choices.setLeftAlone("jetbrains-idea-ce", true);
    EXPECT_TRUE(isLeftAlone("jetbrains-idea-ce", "jetbrains-idea-ce"));
}

TEST_F(ApplicationKindsTest, stillSelectWordsInAnApplicationThatIsNotToBeLeftAlone) {
    choices.setLeftAlone("tk", true);
    EXPECT_EQ(kindOf("tk", "Tk"), FrontApplication::KeepsItsKeys);
    choices.setLeftAlone("tk", false);
    EXPECT_EQ(kindOf("tk", "Tk"), FrontApplication::EditsBySelection);
}

TEST_F(ApplicationKindsTest, rememberABoundedNumberOfApplications) {
    for (int i = 0; i < 5000; ++i) {
        const auto kind = kinds.kindOfFront({.instance = "x", .name = std::to_string(i)});
        EXPECT_EQ(kind, FrontApplication::TakesEditingKeys);
    }
    EXPECT_EQ(kinds.seen().size(), 50U);
    EXPECT_EQ(kinds.seen().front().name, "4999");
    EXPECT_TRUE(isLeftAlone("xterm", "XTerm"));
}

TEST_F(ApplicationKindsTest, rememberWhatWasInFrontTheLatestFirst) {
    const std::vector<WindowClass> windows{{"Navigator", "firefox"},
                                           {"xterm", "XTerm"},
                                           {"", ""},
                                           {"pallistrom", "pallistrom"},
                                           {"Navigator", "Firefox"}};
    for (const WindowClass& window : windows) {
        static_cast<void>(kinds.kindOfFront(window));
    }
    ASSERT_EQ(kinds.seen().size(), 2U);
    EXPECT_EQ(kinds.seen()[0], (WindowClass{"Navigator", "Firefox"}));
    EXPECT_EQ(kinds.seen()[1], (WindowClass{"xterm", "XTerm"}));
}

TEST(ApplicationLists, areReadWithTheirReasons) {
    constexpr auto keeps = FrontApplication::KeepsItsKeys;
    const std::string list = "# remark\n\n  Foo*  -- a reason -- and more\nbar -- another\nbaz\n";
    EXPECT_EQ(ApplicationLists::parse(list, keeps),
              (std::vector<ListedApplication>{{"foo*", "a reason -- and more", keeps},
                                              {"bar", "another", keeps},
                                              {"baz", "", keeps}}));
}

TEST(ApplicationLists, giveAReasonForEachApplication) {
    for (const ListedApplication& listed : ApplicationLists::builtIn()) {
        EXPECT_FALSE(listed.reason.empty()) << listed.pattern;
    }
}

TEST(ApplicationChoices, areKeptInAFileThatPeopleCanRead) {
    const EventLoop loop;
    const SettingsFolder folder;
    ApplicationChoices(folder.name()).setLeftAlone("org.gnome.TextEditor", true);
    ApplicationChoices(folder.name()).setLeftAlone("emacs*", false);
    EXPECT_EQ(folder.text("applications.ini"),
              "[General]\norg.gnome.texteditor=true\nemacs*=false\n");
    EXPECT_EQ(ApplicationChoices(folder.name()).isLeftAlone("Org.Gnome.TextEditor"), true);
    EXPECT_EQ(ApplicationChoices(folder.name()).isLeftAlone("other"), std::nullopt);
}

} // namespace

} // namespace pallistrom
