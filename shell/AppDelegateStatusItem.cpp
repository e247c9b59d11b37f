// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "engine/Preferences.h"
#include "engine/ShortcutLibrary.h"
#include "platform/AccessibilityTrust.h"
#include "platform/Precondition.h"
#include "shell/AppDelegate.h"
#include "shell/StatusMenu.h"
#include "shell/state/AppState.h"
#include "views/openAccessibilitySettings.h"

#include <algorithm>
#include <array>

// The delegate's status item and what its menu asks for.

namespace pallistrom {

namespace {

struct Action {
    std::string_view selector;
    void (*perform)(AppDelegate& delegate, const NSMenuItem* sender);
};

constexpr std::array actions{
    Action{"toggleShortcut:",
           [](auto& delegate, auto* sender) {
               delegate.toggleShortcut(sender);
           }},
    Action{"openAccessibility",
           [](auto& /*delegate*/, auto*) {
               AppDelegate::openAccessibility();
           }},
    Action{"showSettings",
           [](auto& delegate, auto*) {
               delegate.showSettings();
           }},
    Action{"showOnboarding:",
           [](auto& delegate, auto* sender) {
               delegate.showOnboarding(sender);
           }},
    Action{"checkForUpdates",
           [](auto& /*delegate*/, auto*) {
               AppDelegate::checkForUpdates();
           }},
    Action{"reportIssue",
           [](auto& /*delegate*/, auto*) {
               AppDelegate::reportIssue();
           }},
    Action{"quit",
           [](auto& /*delegate*/, auto*) {
               AppDelegate::quit();
           }},
};

} // namespace

void AppDelegate::performAction(std::string_view selector, const NSMenuItem* sender) {
    const auto* const action =
        std::find_if(actions.begin(), actions.end(), [&](const Action& each) {
            return each.selector == selector;
        });
    if (action != actions.end()) {
        action->perform(*this, sender);
    }
}

void AppDelegate::setupStatusItem() {
    m_statusItem = statusItemWithLength(NSVariableStatusItemLength);
    precondition(m_statusItem != nullptr, "the system gives no status item");
    if (auto* const button = m_statusItem->button()) {
        button->setToolTip("Pallistrom");
    }
    refreshStatusIcon();
}

void AppDelegate::refreshStatusIcon() {
    auto* const button = m_statusItem ? m_statusItem->button() : nullptr;
    if (button == nullptr) {
        return;
    }
    auto image = imageWithSystemSymbolName(
        AXIsProcessTrusted() ? "delete.left" : "exclamationmark.triangle", "Pallistrom");
    if (image) {
        image->isTemplate = true;
    }
    button->setImage(image);
    rebuildMenu();
}

void AppDelegate::rebuildMenu() {
    precondition(m_statusItem != nullptr, "no status item to have a menu");
    m_statusItem->setMenu(statusMenu(AXIsProcessTrusted(), ShortcutLibrary::all, weakSelf()));
}

void AppDelegate::toggleShortcut(const NSMenuItem* sender) {
    if (sender == nullptr || sender->representedObject.empty()) {
        return;
    }
    const std::string& id = sender->representedObject;
    // From what is stored, not from the check mark that was shown.
    Preferences::setEnabled(id, !Preferences::isEnabled(id));
    AppState::shared().bumpPrefsVersion();
    rebuildMenu();
}

void AppDelegate::openAccessibility() {
    openAccessibilitySettings();
}

} // namespace pallistrom
