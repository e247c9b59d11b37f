// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EventTapController.h"
#include "platform/Application.h"
#include "platform/RunLoop.h"
#include "platform/StatusItem.h"
#include "shell/Window.h"

#include <functional>
#include <memory>
#include <string_view>

namespace pallistrom {

/// The long-lived controller of the program: wires its parts together at launch, owns the status
/// item and the two windows, and keeps the keyboard filter alive. Main thread only.
class AppDelegate final : public ApplicationDelegate,
                          public std::enable_shared_from_this<AppDelegate> {
public:
    /// Builds the tap's owner from the whole catalogue. Nothing else happens until launch
    /// completes.
    AppDelegate();

    void applicationDidFinishLaunching() override;

    /// Shows the settings, or the guide where that is open.
    void applicationShouldHandleReopen() override;

    /// Carries out an action of the menu by its selector.
    void performAction(std::string_view selector, const NSMenuItem* sender) override;

    /// Shows the guide. The sender does not matter.
    void showOnboarding(const NSMenuItem* sender);

    void showSettings();

    /// To be called before `object` closes; what is no window of ours does not matter.
    void windowWillClose(QObject* object);

    static void checkForUpdates();
    static void reportIssue();
    static void quit();

    // --- The status item.

    void setupStatusItem();

    /// Sets the icon from whether we are trusted, and rebuilds the menu. Does nothing without a
    /// status item that has a button.
    void refreshStatusIcon();

    /// Builds the menu anew. To be called only while there is a status item.
    void rebuildMenu();

    /// Flips the switch of the shortcut that `sender` represents, if it represents one.
    void toggleShortcut(const NSMenuItem* sender);

    static void openAccessibility();

private:
    void maintain();
    void show(OwnedWindow AppDelegate::*field,
              const char* title,
              const std::function<std::unique_ptr<QWidget>()>& makeView);
    [[nodiscard]] bool showsAWindow() const;

    [[nodiscard]] std::weak_ptr<AppDelegate> weakSelf() { return weak_from_this(); }

    NSStatusItemRef m_statusItem;
    /// Shared, because `tapController` publishes it.
    std::shared_ptr<EventTapController> m_tap;
    OwnedWindow m_onboardingWindow;
    OwnedWindow m_settingsWindow;
    NSTimerRef m_maintenanceTimer;
};

} // namespace pallistrom
