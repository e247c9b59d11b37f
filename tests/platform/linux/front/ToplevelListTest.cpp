// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/ToplevelList.h"

#include <gtest/gtest.h>

#include <string>

namespace pallistrom {

namespace {

FrontReport window(const std::string& name) {
    return FrontReport::of({.instance = "", .name = name});
}

class ToplevelListTest : public testing::Test {
protected:
    // A window that the compositor has said all about.
    void open(ToplevelList::Id id, const std::string& name, bool isActivated = false) {
        EXPECT_TRUE(list.add(id));
        list.setApplication(id, name);
        list.setActivated(id, isActivated);
        list.commit(id);
    }

    void activate(ToplevelList::Id id, bool isActivated = true) {
        list.setActivated(id, isActivated);
        list.commit(id);
    }

    ToplevelList list;
};

TEST_F(ToplevelListTest, hasNobodyInFrontWhileNothingIsActivated) {
    EXPECT_EQ(list.report(), FrontReport::nobody());
    open(1, "foot");
    EXPECT_EQ(list.report(), FrontReport::nobody());
}

TEST_F(ToplevelListTest, hasTheActivatedWindowInFront) {
    open(1, "foot");
    open(2, "firefox", true);
    EXPECT_EQ(list.report(), window("firefox"));
    activate(2, false);
    EXPECT_EQ(list.report(), FrontReport::nobody());
    activate(1);
    EXPECT_EQ(list.report(), window("foot"));
}

TEST_F(ToplevelListTest, takesWhatIsSaidOnlyOnceItIsSaidToBeAll) {
    open(1, "foot", true);
    list.setActivated(1, false);
    list.setApplication(1, "other");
    EXPECT_EQ(list.report(), window("foot"));
    list.commit(1);
    EXPECT_EQ(list.report(), FrontReport::nobody());
}

TEST_F(ToplevelListTest, changesSeveralWindowsAtOnce) {
    open(1, "foot", true);
    open(2, "firefox");
    list.setActivated(1, false);
    list.setActivated(2, true);
    EXPECT_EQ(list.report(), window("foot"));
    list.commitAll();
    EXPECT_EQ(list.report(), window("firefox"));
}

TEST_F(ToplevelListTest, believesTheLastOfSeveralActivated) {
    open(2, "firefox", true);
    open(1, "foot", true);
    EXPECT_EQ(list.report(), window("foot"));
    // Said once more, it is no news.
    activate(2);
    EXPECT_EQ(list.report(), window("foot"));
    activate(1, false);
    EXPECT_EQ(list.report(), window("firefox"));
}

TEST_F(ToplevelListTest, forgetsClosedWindows) {
    open(1, "foot", true);
    list.remove(1);
    EXPECT_EQ(list.report(), FrontReport::nobody());
    // Numbers are given again.
    open(1, "firefox", true);
    EXPECT_EQ(list.report(), window("firefox"));
}

TEST_F(ToplevelListTest, ignoresWhatIsSaidOfUnknownWindows) {
    list.setApplication(7, "foot");
    list.setActivated(7, true);
    list.commit(7);
    list.remove(7);
    EXPECT_EQ(list.report(), FrontReport::nobody());
}

TEST_F(ToplevelListTest, followsAWindowThatChangesItsName) {
    open(1, "", true);
    EXPECT_EQ(list.report(), window(""));
    list.setApplication(1, "foot");
    list.commit(1);
    EXPECT_EQ(list.report(), window("foot"));
}

TEST_F(ToplevelListTest, keepsABoundedNumberOfBoundedNames) {
    for (ToplevelList::Id id = 0; id < ToplevelList::most; ++id) {
        EXPECT_TRUE(list.add(id));
    }
    EXPECT_FALSE(list.add(ToplevelList::most));
    list.setApplication(1, std::string(1000000, 'x'));
    activate(1);
    EXPECT_EQ(list.report(), window(std::string(WindowClass::mostBytes, 'x')));
}

} // namespace

} // namespace pallistrom
