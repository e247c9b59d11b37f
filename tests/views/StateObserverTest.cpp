// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/StateObserver.h"

#include "ViewTest.h"

namespace pallistrom {

namespace {

using StateObserverTest = ViewTest;

TEST_F(StateObserverTest, readsOnceHoweverOftenTheStateHasSpoken) {
    QObject view;
    int readings = 0;
    new StateObserver(
        state, [&readings] { ++readings; }, &view);
    state.bumpPrefsVersion();
    state.bumpPrefsVersion();
    state.bumpPrefsVersion();
    EXPECT_EQ(readings, 0);
    EXPECT_EQ(platform.mainQueue.size(), 1U);
    settle();
    EXPECT_EQ(readings, 1);
    state.bumpPrefsVersion();
    settle();
    EXPECT_EQ(readings, 2);
}

TEST_F(StateObserverTest, readsWhatWasAssigned) {
    QObject view;
    std::int64_t seen = -1;
    new StateObserver(
        state, [&] { seen = state.prefsVersion(); }, &view);
    state.bumpPrefsVersion();
    settle();
    EXPECT_EQ(seen, state.prefsVersion());
}

TEST_F(StateObserverTest, readsNothingForAViewThatIsGone) {
    int readings = 0;
    {
        QObject view;
        new StateObserver(
            state, [&readings] { ++readings; }, &view);
        state.bumpPrefsVersion();
    }
    settle();
    EXPECT_EQ(readings, 0);
}

TEST_F(StateObserverTest, seesWhatChangesWhileItReads) {
    QObject view;
    int readings = 0;
    new StateObserver(
        state,
        [&] {
            if (++readings == 1) {
                state.bumpPrefsVersion();
            }
        },
        &view);
    state.bumpPrefsVersion();
    settle();
    EXPECT_EQ(readings, 2);
}

} // namespace

} // namespace pallistrom
