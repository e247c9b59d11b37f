// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QEventLoop>

#include <functional>
#include <memory>

namespace pallistrom {

/// The run loop of a test, with the application object that it needs.
class EventLoop {
public:
    /// Makes an application object from a program's arguments.
    using Make = std::function<std::unique_ptr<QCoreApplication>(int& argc, char** argv)>;

    EventLoop();
    explicit EventLoop(const Make& makeApplication);
    EventLoop(const EventLoop&) = delete;
    EventLoop& operator=(const EventLoop&) = delete;
    ~EventLoop();

    /// Serves whatever comes in until `condition` holds. Returns whether it does within ten
    /// seconds.
    [[nodiscard]] bool runUntil(const std::function<bool()>& condition);

    /// Serves everything that has come in, and waits for nothing.
    void drain();

private:
    int m_argc = 1;
    char m_name[5] = "test";             // NOLINT(modernize-avoid-c-arrays): Qt wants a char**
    char* m_argv[2] = {m_name, nullptr}; // NOLINT(modernize-avoid-c-arrays)
    std::unique_ptr<QCoreApplication> m_application;
    QEventLoop m_loop;
};

} // namespace pallistrom
