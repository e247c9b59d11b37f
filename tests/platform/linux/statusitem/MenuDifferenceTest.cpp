// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/statusitem/MenuDifference.h"

#include "statusitem/MenuItems.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace pallistrom {

namespace {

using MenuItems::Mark;

std::string written(const NSMenuItem& item) {
    return item.isSeparator
               ? "-"
               : item.title + (item.isEnabled ? "" : " (disabled)") + '|' + item.action + '|' +
                     item.representedObject + '|' + item.keyEquivalent + '|' +
                     (item.isCheckable ? "checkable" : "") +
                     (item.state == NSControlStateValue::NSControlStateValueOn ? " on" : "");
}

std::vector<std::string> written(const NSMenu& menu) {
    std::vector<std::string> lines;
    for (const auto& item : menu) {
        lines.push_back(written(item));
    }
    return lines;
}

std::vector<std::string> written(const std::vector<MenuStep>& steps) {
    std::vector<std::string> lines;
    for (const auto& step : steps) {
        const std::string place = std::to_string(step.index);
        switch (step.kind) {
        case MenuStep::Kind::Insert:
            lines.push_back("insert " + place + ' ' + written(step.item));
            break;
        case MenuStep::Kind::Remove:
            lines.push_back("remove " + place);
            break;
        case MenuStep::Kind::Change:
            lines.push_back("change " + place + ' ' + written(step.item));
            break;
        }
    }
    return lines;
}

/// What a menu is after the steps.
NSMenu after(NSMenu menu, const std::vector<MenuStep>& steps) {
    for (const auto& step : steps) {
        const auto place = menu.begin() + static_cast<std::ptrdiff_t>(step.index);
        switch (step.kind) {
        case MenuStep::Kind::Insert:
            menu.insert(place, step.item);
            break;
        case MenuStep::Kind::Remove:
            menu.erase(place);
            break;
        case MenuStep::Kind::Change:
            *place = step.item;
            break;
        }
    }
    return menu;
}

using Lines = std::vector<std::string>;

TEST(MenuDifference, isNothingBetweenEqualMenus) {
    EXPECT_EQ(written(menuDifference(MenuItems::usual(), MenuItems::usual())), Lines{});
    EXPECT_EQ(written(menuDifference({}, {})), Lines{});
}

TEST(MenuDifference, isAChangeInPlaceForACheckMark) {
    NSMenu wanted = MenuItems::usual();
    wanted.at(2) = MenuItems::shortcut("ctrlU", Mark::On);
    EXPECT_EQ(written(menuDifference(MenuItems::usual(), wanted)),
              Lines{"change 2 Shortcut ctrlU|toggleShortcut:|ctrlU||checkable on"});
}

TEST(MenuDifference, isAChangeInPlaceForATitleOrAKeyOrBeingEnabled) {
    NSMenu wanted = MenuItems::usual();
    wanted.at(4).title = "Options…";
    wanted.at(6).keyEquivalent = "e";
    wanted.at(1).isEnabled = false;
    EXPECT_EQ(written(menuDifference(MenuItems::usual(), wanted)),
              (Lines{"change 1 Shortcut ctrlW (disabled)|toggleShortcut:|ctrlW||checkable on",
                     "change 4 Options…|showSettings||,|",
                     "change 6 Quit Pallistrom|quit||e|"}));
}

TEST(MenuDifference, isTwoItemsInFrontWhenTheWarningComes) {
    EXPECT_EQ(written(menuDifference(MenuItems::usual(), MenuItems::warning())),
              (Lines{"insert 0 ⚠ Accessibility access needed|openAccessibility|||", "insert 1 -"}));
}

TEST(MenuDifference, isTwoItemsLessWhenTheWarningGoes) {
    EXPECT_EQ(written(menuDifference(MenuItems::warning(), MenuItems::usual())),
              (Lines{"remove 1", "remove 0"}));
}

TEST(MenuDifference, knowsAnItemThatMovedAwayFromItsPlaceByItsNeighbours) {
    NSMenu wanted = MenuItems::warning();
    wanted.at(3) = MenuItems::shortcut("ctrlW", Mark::Off);
    EXPECT_EQ(written(menuDifference(MenuItems::usual(), wanted)),
              (Lines{"insert 0 ⚠ Accessibility access needed|openAccessibility|||",
                     "insert 1 -",
                     "change 3 Shortcut ctrlW|toggleShortcut:|ctrlW||checkable"}));
}

TEST(MenuDifference, isEverythingForAMenuThatWasEmpty) {
    EXPECT_EQ(menuDifference({}, MenuItems::usual()).size(), MenuItems::usual().size());
    EXPECT_EQ(menuDifference(MenuItems::usual(), {}).size(), MenuItems::usual().size());
}

TEST(MenuDifference, ofAnyTwoMenusMakesTheOneOutOfTheOther) {
    const NSMenu pool = MenuItems::warning();
    std::mt19937 random(1); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same menus each time
    const auto some = [&] {
        NSMenu menu;
        for (std::size_t count = random() % 9; count > 0; --count) {
            NSMenuItem item = pool.at(random() % pool.size());
            if (item.isCheckable && random() % 2 == 0) {
                item.state = NSControlStateValue::NSControlStateValueOn;
            }
            menu.push_back(item);
        }
        return menu;
    };
    for (int round = 0; round < 5000; ++round) {
        const NSMenu shown = some();
        const NSMenu wanted = some();
        ASSERT_EQ(written(after(shown, menuDifference(shown, wanted))), written(wanted))
            << "round " << round;
    }
}

} // namespace

} // namespace pallistrom
