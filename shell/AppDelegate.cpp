// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "shell/AppDelegate.h"

#include "engine/Preferences.h"
#include "engine/ShortcutLibrary.h"
#include "platform/AccessibilityTrust.h"
#include "platform/Bundle.h"
#include "shell/IssueReport.h"
#include "shell/UpdaterManager.h"
#include "shell/state/AppState.h"
#include "views/OnboardingView.h"
#include "views/SettingsView.h"

#include <QString>

#include <chrono>
#include <utility>

namespace pallistrom {

AppDelegate::AppDelegate() : m_tap(std::make_shared<EventTapController>(ShortcutLibrary::all)) {}

void AppDelegate::applicationDidFinishLaunching() {
    // Before anything reads a switch.
    Preferences::registerDefaults(ShortcutLibrary::all);
    tapController = m_tap;
    setupStatusItem();

    // Read once: the question to the user and the guide go together.
    const bool done = Preferences::hasCompletedOnboarding();
    AXIsProcessTrustedWithOptions({{kAXTrustedCheckOptionPrompt, !done}});
    // Without the permission this fails quietly, and the timer tries again.
    m_tap->start();
    AppState::shared().start();
    // Scheduled checks are to run from the launch on, not from the first click.
    UpdaterManager::shared();

    using namespace std::chrono_literals;
    m_maintenanceTimer = scheduledTimerWithTimeInterval(2000ms, [weak = weakSelf()] {
        if (const auto self = weak.lock()) {
            self->maintain();
        }
    });
    refreshStatusIcon();
    if (!done) {
        showOnboarding(nullptr);
    }
}

// Asks everything again, whatever has changed: what follows a change that nobody told us of is
// right two seconds later. Those who are told the same again do nothing.
void AppDelegate::maintain() {
    m_tap->ensureRunning();
    refreshStatusIcon();
}

void AppDelegate::applicationShouldHandleReopen() {
    if (m_onboardingWindow) {
        showOnboarding(nullptr);
    } else {
        showSettings();
    }
}

void AppDelegate::showOnboarding(const NSMenuItem* /*sender*/) {
    show(&AppDelegate::m_onboardingWindow, "Welcome to Pallistrom", [this] {
        return std::make_unique<OnboardingView>(AppState::shared(), [weak = weakSelf()] {
            const auto self = weak.lock();
            if (self && self->m_onboardingWindow) {
                self->m_onboardingWindow->close();
            }
        });
    });
}

void AppDelegate::showSettings() {
    show(&AppDelegate::m_settingsWindow, "Pallistrom Settings", [this] {
        const auto replay = [weak = weakSelf()] {
            const auto self = weak.lock();
            if (!self) {
                return;
            }
            if (self->m_settingsWindow) {
                self->m_settingsWindow->close();
            }
            self->showOnboarding(nullptr);
        };
        return std::make_unique<SettingsView>(
            AppState::shared(), replay, [] { Application::sharedApplication().terminate(); });
    });
}

// A second window of a kind is never made.
void AppDelegate::show(OwnedWindow AppDelegate::*field,
                       const char* title,
                       const std::function<std::unique_ptr<QWidget>()>& makeView) {
    OwnedWindow& window = this->*field;
    if (!window) {
        window.reset(new Window(makeView()));
        window->setWindowTitle(QString::fromStdString(NSLocalizedString(title)));
        window->setWillClose([weak = weakSelf()](Window* closing) {
            if (const auto self = weak.lock()) {
                self->windowWillClose(closing);
            }
        });
        window->center();
    }
    Application& app = Application::sharedApplication();
    app.setActivationPolicy(NSApplicationActivationPolicy::NSApplicationActivationPolicyRegular);
    app.activateIgnoringOtherApps(true);
    window->makeKeyAndOrderFront();
}

void AppDelegate::windowWillClose(QObject* object) {
    const auto* const window = qobject_cast<Window*>(object);
    if (window == nullptr) {
        return;
    }
    for (OwnedWindow* const field : {&m_onboardingWindow, &m_settingsWindow}) {
        if (field->get() == window) {
            field->reset();
        }
    }
    refreshStatusIcon();
    // Later, since another window may open in the same turn.
    dispatchAsyncOnMainQueue([weak = weakSelf()] {
        const auto self = weak.lock();
        if (!self || !self->showsAWindow()) {
            Application::sharedApplication().setActivationPolicy(
                NSApplicationActivationPolicy::NSApplicationActivationPolicyAccessory);
        }
    });
}

bool AppDelegate::showsAWindow() const {
    return (m_onboardingWindow && m_onboardingWindow->isVisible()) ||
           (m_settingsWindow && m_settingsWindow->isVisible());
}

void AppDelegate::checkForUpdates() {
    UpdaterManager::shared().checkForUpdates();
}

void AppDelegate::reportIssue() {
    reportAnIssue();
}

void AppDelegate::quit() {
    Application::sharedApplication().terminate();
}

} // namespace pallistrom
