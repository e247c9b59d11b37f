// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/statusitem/TrayStatusItem.h"

#include "platform/Log.h"
#include "platform/linux/QtText.h"
#include "platform/linux/application/QtApplication.h"
#include "platform/linux/statusitem/MenuActions.h"
#include "platform/linux/statusitem/TrayIcon.h"

#include <QApplication>

#include <algorithm>
#include <chrono>
#include <utility>

namespace pallistrom {

namespace {

/// At login the panel may start long after us. Somebody who has just asked for the program has a
/// desktop already, with a panel or without, and does not wait for long.
std::chrono::milliseconds graceTime() {
    using namespace std::chrono_literals;
    return qtApplication().isAskedFor() ? 3s : 20s;
}

bool showsAWindow() {
    const auto windows = QApplication::topLevelWidgets();
    return std::any_of(
        windows.begin(), windows.end(), [](const QWidget* window) { return window->isVisible(); });
}

void trayMissing() {
    NSLog("Pallistrom: the desktop has no tray (yet); starting the program again shows its window");
    if (const auto delegate = qtApplication().delegate();
        delegate != nullptr && qtApplication().isAskedFor() && !showsAWindow()) {
        delegate->applicationShouldHandleReopen();
    }
}

void activated(QSystemTrayIcon::ActivationReason reason) {
    // Panels that open the menu on a left click do not tell of it.
    if (reason != QSystemTrayIcon::Trigger) {
        return;
    }
    if (const auto delegate = qtApplication().delegate()) {
        delegate->performAction("showSettings", nullptr);
    }
}

} // namespace

TrayStatusItem::TrayStatusItem()
    : m_menu(std::make_unique<StatusMenu>(
          [](const NSMenuItem& item) { MenuActions::perform(item); })) {
    m_watch = std::make_unique<TrayWatch>(
        TrayWatch::Answers{.found = [this] { trayFound(); }, .missing = trayMissing}, graceTime());
    QObject::connect(QCoreApplication::instance(),
                     &QCoreApplication::aboutToQuit,
                     &m_context,
                     [this] { release(); });
}

void TrayStatusItem::setMenu(NSMenu menu) {
    MenuActions::setMenu(menu);
    if (m_menu != nullptr) {
        m_menu->show(std::move(menu));
    }
}

void TrayStatusItem::setToolTip(std::string_view text) {
    if (text != m_toolTip) {
        m_toolTip = text;
        if (m_icon != nullptr) {
            m_icon->setToolTip(qtText(text));
        }
    }
}

void TrayStatusItem::setImage(const std::optional<NSImage>& image) {
    if (image != m_image) {
        m_image = image;
        if (m_icon != nullptr) {
            m_icon->setIcon(trayIcon(image));
        }
    }
}

void TrayStatusItem::trayFound() {
    m_icon = std::make_unique<QSystemTrayIcon>(trayIcon(m_image));
    m_icon->setToolTip(qtText(m_toolTip));
    m_icon->setContextMenu(&m_menu->menu());
    QObject::connect(m_icon.get(), &QSystemTrayIcon::activated, &m_context, activated);
    m_icon->show();
    // It called this and has done its duty, but is still speaking.
    m_watch.release()->deleteLater();
}

void TrayStatusItem::release() {
    m_watch.reset();
    m_icon.reset();
    m_menu.reset();
}

} // namespace pallistrom
