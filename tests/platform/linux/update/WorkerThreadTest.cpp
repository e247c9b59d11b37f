// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/WorkerThread.h"

#include "EventLoop.h"

#include <QPointer>
#include <QThread>

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <future>
#include <optional>
#include <utility>

namespace pallistrom {

namespace {

class Work final : public ThreadWork {
public:
    Work(std::function<void()> begun, std::function<void()> ended)
        : m_begun(std::move(begun)), m_ended(std::move(ended)) {}

    ~Work() override { m_ended(); }

    void begin() override { m_begun(); }

private:
    std::function<void()> m_begun;
    std::function<void()> m_ended;
};

TEST(WorkerThread, beginsAndEndsItsWorkOnAThreadOfItsOwn) {
    const EventLoop loop;
    std::promise<QThread*> begun;
    std::promise<QThread*> ended;
    auto beginning = begun.get_future();
    auto ending = ended.get_future();
    std::optional<WorkerThread> thread(
        std::in_place,
        std::make_unique<Work>([&] { begun.set_value(QThread::currentThread()); },
                               [&] { ended.set_value(QThread::currentThread()); }));
    QThread* const own = beginning.get();
    EXPECT_NE(own, QThread::currentThread());
    thread.reset();
    EXPECT_EQ(ending.get(), own);
}

TEST(WorkerThread, isNotWaitedFor) {
    const EventLoop loop;
    std::promise<void> release;
    std::promise<void> ended;
    auto released = release.get_future();
    auto ending = ended.get_future();
    {
        const WorkerThread thread(
            std::make_unique<Work>([&] { released.wait(); }, [&] { ended.set_value(); }));
    }
    // Gets here though the work is not over.
    release.set_value();
    ending.wait();
}

TEST(WorkerThread, endsBeforeTheProgramDoes) {
    std::atomic<bool> hasEnded = false;
    EventLoop loop;
    const WorkerThread thread(std::make_unique<Work>([] {}, [&] { hasEnded = true; }));
    QMetaObject::invokeMethod(QCoreApplication::instance(), "aboutToQuit", Qt::DirectConnection);
    EXPECT_TRUE(hasEnded);
}

TEST(WorkerThread, leavesNothingBehindAsTheProgramEnds) {
    std::promise<QThread*> begun;
    auto beginning = begun.get_future();
    const EventLoop loop;
    const WorkerThread thread(
        std::make_unique<Work>([&] { begun.set_value(QThread::currentThread()); }, [] {}));
    const QPointer<QThread> own = beginning.get();
    QMetaObject::invokeMethod(QCoreApplication::instance(), "aboutToQuit", Qt::DirectConnection);
    // As QCoreApplication::exec() does in the end.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(own);
}

} // namespace

} // namespace pallistrom
