// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Pallistrom.h"
#include "Shortcut.h"
#include "Tools.h"
#include "VirtualDisplay.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace pallistrom::e2e {

namespace {

TEST(FreshInstallation, hasControlWAndControlUOnAndTheOthersOff) {
    const std::string missing = missingPrograms({"Xvfb", "openbox", Pallistrom::path()});
    if (!missing.empty()) {
        GTEST_SKIP() << missing;
    }
    const VirtualDisplay display;
    const Pallistrom program{display.name()};
    const std::map<std::string, bool> expected{
        {"ctrlW", true}, {"ctrlU", true}, {"ctrlK", false}, {"altD", false}};
    for (const Shortcut& shortcut : allShortcuts()) {
        EXPECT_TRUE(expected.at(shortcut.id) ? program.waitUntilGrabbed(shortcut.grab)
                                             : program.waitUntilReleased(shortcut.grab))
            << shortcut.name;
    }
}

} // namespace

} // namespace pallistrom::e2e
