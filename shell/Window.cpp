// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "shell/Window.h"

#include "views/controls/AccessibleRole.h"

#include <QCloseEvent>
#include <QScreen>
#include <QVBoxLayout>

#include <utility>

namespace pallistrom {

Window::Window(std::unique_ptr<QWidget> contentView)
    : QWidget(nullptr,
              Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                  Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint) {
    // Any other widget is no window to a screen reader, even if it is one on the screen.
    setAccessibleRole(*this, QAccessible::Window);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(contentView.release());
}

void Window::setWillClose(std::function<void(Window* window)> willClose) {
    m_willClose = std::move(willClose);
}

void Window::center() {
    adjustSize();
    QRect frame = rect();
    frame.moveCenter(screen()->availableGeometry().center());
    move(frame.topLeft());
}

void Window::makeKeyAndOrderFront() {
    show();
    raise();
    activateWindow();
}

void Window::closeEvent(QCloseEvent* event) {
    if (m_willClose) {
        m_willClose(this);
    }
    event->accept();
}

void WindowReleaser::operator()(Window* window) const {
    window->hide();
    window->deleteLater();
}

} // namespace pallistrom
