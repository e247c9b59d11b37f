// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QThread>

#include <memory>

namespace pallistrom {

/// Work that is done on a thread of its own.
class ThreadWork : public QObject {
    Q_OBJECT

public:
    /// Called once, on the thread. What it starts there goes on until this is destroyed, there too.
    virtual void begin() = 0;
};

/// A thread that serves one piece of work for as long as this lives, so that the main thread, on
/// which keys may wait, does neither work nor wait. Main thread only.
class WorkerThread {
public:
    explicit WorkerThread(std::unique_ptr<ThreadWork> work);
    WorkerThread(const WorkerThread&) = delete;
    WorkerThread& operator=(const WorkerThread&) = delete;
    /// Ends the work, but does not wait until it has ended.
    ~WorkerThread();

private:
    QPointer<QThread> m_thread; ///< its own, and gone some time after it has ended
};

} // namespace pallistrom
