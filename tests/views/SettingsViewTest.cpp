// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "views/SettingsView.h"

#include "ViewTest.h"
#include "engine/Preferences.h"
#include "engine/ShortcutLibrary.h"
#include "views/LoginToggle.h"
#include "views/OnboardingView.h"
#include "views/ShortcutRow.h"
#include "views/controls/PushButton.h"
#include "views/controls/Switch.h"
#include "views/controls/Text.h"

#include <memory>

namespace pallistrom {

namespace {

class SettingsViewTest : public ViewTest {
protected:
    SettingsView& open() {
        view = std::make_unique<SettingsView>(
            state, [this] { ++replays; }, [this] { ++quits; });
        show(*view);
        return *view;
    }

    std::unique_ptr<SettingsView> view;
    int replays = 0;
    int quits = 0;
};

TEST_F(SettingsViewTest, showsAllItsTextsFromTopToBottom) {
    open();
    setTrusted(false);
    std::vector<QString> expected{QStringLiteral("Pallistrom"),
                                  QStringLiteral("Terminal-style editing, everywhere"),
                                  QStringLiteral("Waiting for Accessibility access"),
                                  QStringLiteral("Open Settings…"),
                                  QStringLiteral("Shortcuts")};
    for (const ShortcutDef& shortcut : ShortcutLibrary::all) {
        expected.push_back(QString::fromStdString(std::string(shortcut.title)));
        if (shortcut.recommended) {
            expected.push_back(QStringLiteral("Recommended"));
        }
        expected.push_back(QString::fromStdString(std::string(shortcut.subtitle)));
    }
    expected.insert(expected.end(),
                    {QStringLiteral("General"),
                     QStringLiteral("Launch Pallistrom at login"),
                     QStringLiteral("Replay Onboarding"),
                     QStringLiteral("v1.2"),
                     QStringLiteral("Quit Pallistrom")});
    EXPECT_EQ(visibleTexts(*view), expected);
}

TEST_F(SettingsViewTest, offersThePermissionOnlyWhileItIsMissing) {
    open();
    auto& button = showing<PushButton>(*view, "Open Settings…");
    setTrusted(true);
    EXPECT_FALSE(button.isVisible());
    setTrusted(false);
    EXPECT_TRUE(button.isVisible());
    button.click();
    EXPECT_EQ(platform.openedURLs.size(), 1U);
    setTrusted(true);
    EXPECT_FALSE(button.isVisible());
}

TEST_F(SettingsViewTest, showsTheVersionDirectlyBehindItsV) {
    platform.infoDictionary["CFBundleShortVersionString"] = "7.8.9";
    open();
    EXPECT_TRUE(showing<Text>(*view, "v7.8.9").isVisible());
}

TEST_F(SettingsViewTest, showsVersionOneWhereNoneIsKnown) {
    platform.infoDictionary.clear();
    open();
    EXPECT_TRUE(showing<Text>(*view, "v1.0").isVisible());
}

TEST_F(SettingsViewTest, keepsTheVersionThatItWasMadeWith) {
    open();
    platform.infoDictionary["CFBundleShortVersionString"] = "2.0";
    state.bumpPrefsVersion();
    settle();
    EXPECT_TRUE(showing<Text>(*view, "v1.2").isVisible());
}

TEST_F(SettingsViewTest, listsTheCatalogueInItsOrder) {
    open();
    const auto rows = view->findChildren<ShortcutRow*>();
    ASSERT_EQ(static_cast<std::size_t>(rows.size()), ShortcutLibrary::all.size());
    int top = 0;
    for (qsizetype index = 0; index < rows.size(); ++index) {
        EXPECT_EQ(rows.at(index)->shortcut().id,
                  ShortcutLibrary::all.at(static_cast<std::size_t>(index)).id);
        EXPECT_GT(placeOf(*rows.at(index), *view).top(), top);
        top = placeOf(*rows.at(index), *view).top();
    }
}

TEST_F(SettingsViewTest, callsBackForItsTwoActions) {
    open();
    showing<PushButton>(*view, "Replay Onboarding").click();
    EXPECT_EQ(replays, 1);
    EXPECT_EQ(quits, 0);
    showing<PushButton>(*view, "Quit Pallistrom").click();
    EXPECT_EQ(replays, 1);
    EXPECT_EQ(quits, 1);
}

TEST_F(SettingsViewTest, showsWhatTheSystemHasMadeOfTheLoginSwitch) {
    open();
    expectLoginSwitchShowsWhatCameOfIt(*view);
}

TEST_F(SettingsViewTest, followsALoginItemThatIsChangedElsewhere) {
    open();
    platform.loginItemStatus = SMAppServiceStatus::SMAppServiceStatusEnabled;
    state.refresh();
    settle();
    EXPECT_TRUE(only<LoginToggle>(*view).control().isChecked());
}

TEST_F(SettingsViewTest, agreesWithTheGuideBesideIt) {
    OnboardingView guide(state, [] {});
    show(guide);
    open();
    view->findChildren<ShortcutRow*>().at(1)->control().click();
    only<LoginToggle>(*view).control().click();
    settle();
    EXPECT_FALSE(guide.findChildren<ShortcutRow*>().at(1)->control().isChecked());
    EXPECT_TRUE(only<LoginToggle>(guide).control().isChecked());
}

TEST_F(SettingsViewTest, survivesBeingClosedFromItsOwnButton) {
    view = std::make_unique<SettingsView>(
        state, [this] { view->deleteLater(); }, [] {});
    show(*view);
    showing<PushButton>(*view, "Replay Onboarding").click();
    static_cast<void>(view.release());
    state.bumpPrefsVersion();
    settle();
}

} // namespace

} // namespace pallistrom
