// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT

// A small program with a status item, which says on its output what it is asked to do and takes
// orders on its input.

#include "platform/Application.h"
#include "platform/RunLoop.h"
#include "platform/StatusItem.h"
#include "platform/linux/DescriptorWatch.h"

#include <QWidget>

#include <unistd.h>

#include <chrono>
#include <iostream>
#include <memory>
#include <set>
#include <string>
#include <utility>

namespace pallistrom {

namespace {

void say(const std::string& line) {
    std::cout << line << std::endl; // NOLINT(performance-avoid-endl): somebody waits for it.
}

NSMenuItem menuItem(std::string title, std::string action, std::string key = {}) {
    NSMenuItem item;
    item.title = std::move(title);
    item.action = std::move(action);
    item.keyEquivalent = std::move(key);
    return item;
}

class Delegate final : public ApplicationDelegate, public std::enable_shared_from_this<Delegate> {
public:
    void applicationDidFinishLaunching() override {
        m_item = statusItemWithLength(NSVariableStatusItemLength);
        m_item->button()->setToolTip("Pallistrom");
        refresh();
        // As the program does it, only more often.
        m_timer = scheduledTimerWithTimeInterval(std::chrono::milliseconds(50), [this] { tick(); });
        m_input = watchDescriptor(STDIN_FILENO, [this] { readOrders(); });
        say("launched");
    }

    void applicationShouldHandleReopen() override {
        say("reopen");
        showWindow();
    }

    void performAction(std::string_view selector, const NSMenuItem* sender) override {
        std::string line = "action " + std::string(selector);
        if (sender != nullptr && !sender->representedObject.empty()) {
            line += ' ' + sender->representedObject;
        }
        say(line);
        if (selector == "toggleShortcut:") {
            flip("on:" + sender->representedObject);
            refresh();
        } else if (selector == "quit") {
            Application::sharedApplication().terminate();
        } else if (selector == "showSettings") {
            showWindow();
        }
    }

private:
    void tick() {
        refresh();
        if (m_ticksToTell > 0 && --m_ticksToTell == 0) {
            say("ticked");
        }
    }

    void flip(const std::string& flag) {
        if (m_flags.erase(flag) == 0) {
            m_flags.insert(flag);
        }
    }

    void showWindow() {
        if (m_window == nullptr) {
            m_window = std::make_unique<QWidget>();
            m_window->setWindowTitle(QStringLiteral("Window"));
            m_window->resize(300, 200);
        }
        Application::sharedApplication().activateIgnoringOtherApps(true);
        m_window->show();
        m_window->raise();
    }

    /// "ticks N" says "ticked" after N refreshes; another word flips the flag of that name.
    void readOrders() {
        char byte = 0;
        if (read(STDIN_FILENO, &byte, 1) != 1) {
            m_input.reset();
            return;
        }
        if (byte != '\n') {
            m_order.push_back(byte);
            return;
        }
        const std::string order = std::exchange(m_order, {});
        if (order.rfind("ticks ", 0) == 0) {
            m_ticksToTell = std::stoi(order.substr(6));
            return;
        }
        flip(order);
        refresh();
        say("done " + order);
    }

    NSMenu menu() {
        NSMenu menu;
        if (m_flags.contains("warning")) {
            menu.push_back(menuItem("⚠ Accessibility access needed", "openAccessibility"));
            menu.push_back(NSMenuItem::separatorItem());
        }
        menu.push_back(menuItem("Shortcuts", ""));
        menu.back().isEnabled = false;
        for (const auto& [id, title] : {std::pair{"ctrlW", "⌃W   Delete word"},
                                        std::pair{"ctrlU", "⌃U   Delete to start & more"}}) {
            auto item = menuItem(title, "toggleShortcut:");
            item.representedObject = id;
            item.isCheckable = true;
            item.target = weak_from_this();
            item.state = m_flags.contains("on:" + item.representedObject)
                             ? NSControlStateValue::NSControlStateValueOn
                             : NSControlStateValue::NSControlStateValueOff;
            menu.push_back(item);
        }
        menu.push_back(NSMenuItem::separatorItem());
        menu.push_back(menuItem("Settings…", "showSettings", ","));
        menu.push_back(menuItem("Onboarding…", "showOnboarding:"));
        menu.push_back(NSMenuItem::separatorItem());
        menu.push_back(menuItem("Quit Pallistrom", "quit", "q"));
        return menu;
    }

    void refresh() {
        const bool warns = m_flags.contains("warning");
        auto image = imageWithSystemSymbolName(warns ? "exclamationmark.triangle" : "delete.left",
                                               "Pallistrom");
        image->isTemplate = true;
        m_item->button()->setImage(image);
        m_item->setMenu(menu());
    }

    NSStatusItemRef m_item;
    NSTimerRef m_timer;
    std::unique_ptr<DescriptorWatch> m_input;
    std::string m_order;
    std::set<std::string> m_flags{"on:ctrlW"};
    int m_ticksToTell = 0;
    std::unique_ptr<QWidget> m_window;
};

/// Never destroyed, as that of the program.
std::shared_ptr<Delegate>& delegate = *new std::shared_ptr<Delegate>;

} // namespace

} // namespace pallistrom

int main(int argc, char** argv) {
    auto& application = pallistrom::Application::sharedApplication(argc, argv);
    pallistrom::delegate = std::make_shared<pallistrom::Delegate>();
    application.setDelegate(pallistrom::delegate);
    return application.run();
}
