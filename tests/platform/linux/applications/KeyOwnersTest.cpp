// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/KeyOwners.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pallistrom {

namespace {

bool keepsItsKeys(const std::string& instance, const std::string& name) {
    KeyOwners owners{DesktopEntries({})};
    return owners.includes({.instance = instance, .name = name});
}

TEST(KeyOwners, includeTerminalsEditorsAndWindowsOntoOtherSystems) {
    EXPECT_TRUE(keepsItsKeys("xterm", "XTerm"));
    EXPECT_TRUE(keepsItsKeys("urxvt", "URxvt"));
    EXPECT_TRUE(keepsItsKeys("emacs", "Emacs"));
    EXPECT_TRUE(keepsItsKeys("emacs-gtk", "Emacs-gtk"));
    EXPECT_TRUE(keepsItsKeys("gvim", "Gvim"));
    EXPECT_TRUE(keepsItsKeys("jetbrains-idea-ce", "jetbrains-idea-ce"));
    EXPECT_TRUE(keepsItsKeys("org.remmina.Remmina", "org.remmina.Remmina"));
    EXPECT_TRUE(keepsItsKeys("VirtualBoxVM", "VirtualBox Machine"));
    EXPECT_TRUE(keepsItsKeys("qemu-system-x86_64", "Qemu-system-x86_64"));
    EXPECT_TRUE(keepsItsKeys("notepad.exe", "notepad.exe"));
    EXPECT_TRUE(keepsItsKeys("Xephyr", "Xephyr"));
}

TEST(KeyOwners, includeNobodyElse) {
    EXPECT_FALSE(keepsItsKeys("Navigator", "firefox"));
    EXPECT_FALSE(keepsItsKeys("chromium", "Chromium"));
    EXPECT_FALSE(keepsItsKeys("steam", "Steam"));
    EXPECT_FALSE(keepsItsKeys("gedit", "Gedit"));
    EXPECT_FALSE(keepsItsKeys("my-xterm-manual", "Reader"));
}

TEST(KeyOwners, doNotIncludeAnApplicationThatNobodyKnows) {
    EXPECT_FALSE(keepsItsKeys("", ""));
    EXPECT_FALSE(keepsItsKeys(std::string(100000, 'x'), "\xff\xfe*[?"));
}

TEST(KeyOwners, areKnownByEitherPartOfTheClass) {
    EXPECT_TRUE(keepsItsKeys("anything", "XTerm"));
    EXPECT_TRUE(keepsItsKeys("kitty", "work"));
}

TEST(KeyOwners, areReadFromAListWithReasons) {
    const std::string list = "# remark\n\n  Foo*  -- a reason\nbar -- another\nbaz\n";
    EXPECT_EQ(KeyOwners::parseList(list), (std::vector<std::string>{"foo*", "bar", "baz"}));
}

TEST(KeyOwners, rememberABoundedNumberOfAnswers) {
    KeyOwners owners{DesktopEntries({})};
    for (int i = 0; i < 5000; ++i) {
        EXPECT_FALSE(owners.includes({.instance = std::to_string(i), .name = "x"}));
    }
    EXPECT_TRUE(owners.includes({.instance = "xterm", .name = "XTerm"}));
}

} // namespace

} // namespace pallistrom
