// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/WorkerThread.h"

#include <QCoreApplication>
#include <QThread>

namespace pallistrom {

WorkerThread::WorkerThread(std::unique_ptr<ThreadWork> work) : m_thread(new QThread) {
    // Out of the way of the keys.
    constexpr auto priority = QThread::LowPriority;
    ThreadWork* const worker = work.release();
    worker->moveToThread(m_thread);
    QObject::connect(m_thread, &QThread::started, worker, &ThreadWork::begin);
    QObject::connect(m_thread, &QThread::finished, worker, &QObject::deleteLater);
    QObject::connect(m_thread, &QThread::finished, m_thread, &QObject::deleteLater);
    // What the libraries keep for all threads is gone when the program has ended.
    QObject::connect(QCoreApplication::instance(),
                     &QCoreApplication::aboutToQuit,
                     m_thread,
                     [thread = m_thread] {
                         constexpr unsigned long longestWait = 3000;
                         thread->quit();
                         thread->wait(longestWait);
                     });
    m_thread->start(priority);
}

WorkerThread::~WorkerThread() {
    m_thread->quit();
}

} // namespace pallistrom
