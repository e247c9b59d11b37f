// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ShellTest.h"

#include "platform/Precondition.h"
#include "shell/runApplication.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>

#include <algorithm>

namespace pallistrom {

ShellTest::~ShellTest() {
    for (QWidget* const each : QApplication::topLevelWidgets()) {
        each->close();
    }
    turn();
    delegate.reset();
    tapController.reset();
}

void ShellTest::launch() {
    runApplication(0, nullptr);
    delegate = std::dynamic_pointer_cast<AppDelegate>(platform.delegate.lock());
}

void ShellTest::launchAgain() {
    Preferences::setHasCompletedOnboarding(true);
    launch();
}

std::vector<std::string> ShellTest::visibleWindows() {
    std::vector<std::string> titles;
    for (const QWidget* const each : QApplication::topLevelWidgets()) {
        if (each->isVisible()) {
            titles.push_back(each->windowTitle().toStdString());
        }
    }
    std::sort(titles.begin(), titles.end());
    return titles;
}

Window* ShellTest::window(std::string_view title) {
    for (QWidget* const each : QApplication::topLevelWidgets()) {
        if (each->isVisible() && each->windowTitle().toStdString() == title) {
            return qobject_cast<Window*>(each);
        }
    }
    return nullptr;
}

void ShellTest::press(const Window& window, std::string_view text) {
    const auto buttons = window.findChildren<QAbstractButton*>();
    const auto found = std::find_if(buttons.begin(), buttons.end(), [text](const auto* button) {
        return button->text().toStdString() == text;
    });
    precondition(found != buttons.end(), "no such button to press");
    (*found)->click();
}

void ShellTest::turn() {
    platform.runMainQueue();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

} // namespace pallistrom
