// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "EventLoop.h"

#include <QTimer>

#include <chrono>

namespace pallistrom {

EventLoop::EventLoop()
    : EventLoop(
          [](int& argc, char** argv) { return std::make_unique<QCoreApplication>(argc, argv); }) {}

EventLoop::EventLoop(const Make& makeApplication)
    : m_application(makeApplication(m_argc, static_cast<char**>(m_argv))) {}

EventLoop::~EventLoop() {
    // As the end of a program's run does.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

bool EventLoop::runUntil(const std::function<bool()>& condition) {
    using namespace std::chrono_literals;
    QTimer deadline;
    deadline.setSingleShot(true);
    deadline.start(10s);
    while (!condition() && deadline.isActive()) {
        m_loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
    return condition();
}

void EventLoop::drain() {
    while (m_loop.processEvents(QEventLoop::AllEvents)) {
    }
}

} // namespace pallistrom
