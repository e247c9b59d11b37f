// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/application/WindowsToFront.h"

#include "platform/linux/application/DesktopMessages.h"

#include <QApplication>
#include <QEvent>
#include <QWindow>

#include <chrono>

namespace pallistrom {

namespace {

bool isShownWindow(const QWidget& widget) {
    return widget.isVisible() &&
           (widget.windowType() == Qt::Window || widget.windowType() == Qt::Dialog);
}

} // namespace

WindowsToFront::WindowsToFront() {
    m_endOfTurn.setSingleShot(true);
    connect(&m_endOfTurn, &QTimer::timeout, this, &WindowsToFront::bringToFront);
}

void WindowsToFront::request() {
    if (!m_endOfTurn.isActive()) {
        QCoreApplication::instance()->installEventFilter(this);
        m_endOfTurn.start(std::chrono::milliseconds(0));
    }
}

bool WindowsToFront::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show || event->type() == QEvent::ZOrderChange) {
        auto* const widget = qobject_cast<QWidget*>(watched);
        if (widget != nullptr && isShownWindow(*widget)) {
            m_front = widget;
        }
    }
    return false;
}

void WindowsToFront::bringToFront() {
    QCoreApplication::instance()->removeEventFilter(this);
    QWidget* front = m_front;
    m_front.clear();
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (isShownWindow(*window) && window != front) {
            window->raise();
            front = front == nullptr ? window : front;
        }
    }
    if (front == nullptr || !isShownWindow(*front)) {
        return;
    }
    front->raise();
    front->activateWindow();
    // The click that asked for the window went to another program, the panel or a launcher. Qt
    // knows no time of it, and window managers refuse windows that cannot say when they were asked
    // for.
    DesktopMessages::activate(front->winId());
}

} // namespace pallistrom
