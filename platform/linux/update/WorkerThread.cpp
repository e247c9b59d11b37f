// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/WorkerThread.h"

#include <QCoreApplication>

namespace pallistrom {

WorkerThread::WorkerThread(std::unique_ptr<ThreadWork> work) : m_thread(new QThread) {
    // Out of the way of the keys.
    constexpr auto priority = QThread::LowPriority;
    QThread* const thread = m_thread;
    ThreadWork* const worker = work.release();
    worker->moveToThread(thread);
    QObject::connect(thread, &QThread::started, worker, &ThreadWork::begin);
    QObject::connect(thread, &QThread::finished, worker, &QObject::deleteLater);
    // A program that ends serves no calls any more, but still deletes what was to be deleted later.
    QObject::connect(
        thread, &QThread::finished, thread, &QObject::deleteLater, Qt::DirectConnection);
    // What the libraries keep for all threads is gone when the program has ended.
    QObject::connect(
        QCoreApplication::instance(), &QCoreApplication::aboutToQuit, thread, [thread] {
            constexpr unsigned long longestWait = 3000;
            thread->quit();
            thread->wait(longestWait);
        });
    thread->start(priority);
}

WorkerThread::~WorkerThread() {
    if (m_thread) {
        m_thread->quit();
    }
}

} // namespace pallistrom
