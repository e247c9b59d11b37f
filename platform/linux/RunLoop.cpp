// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/RunLoop.h"

#include "platform/linux/MachPort.h"
#include "platform/linux/MainQueue.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimer>

#include <utility>
#include <vector>

namespace pallistrom {

class CFRunLoopSource {
public:
    CFMachPortRef port;
};

/// Qt's event loop of a thread. Its sources are served in all of Qt's nested loops too, which is
/// what the common modes ask for.
class CFRunLoop {
public:
    std::vector<CFRunLoopSourceRef> sources;
};

/// Stands for a timer that the application object owns.
class NSTimer {};

namespace {

class NotifierWatch final : public DescriptorWatch {
public:
    NotifierWatch(int descriptor, std::function<void()> whenReadable)
        : m_notifier(new QSocketNotifier(descriptor, QSocketNotifier::Read)) {
        QObject::connect(m_notifier,
                         &QSocketNotifier::activated,
                         m_notifier,
                         [action = std::move(whenReadable)] { action(); });
    }

    NotifierWatch(const NotifierWatch&) = delete;
    NotifierWatch& operator=(const NotifierWatch&) = delete;

    ~NotifierWatch() override {
        // Not deleted at once: it may be the one that is speaking.
        m_notifier->setEnabled(false);
        m_notifier->deleteLater();
    }

private:
    QSocketNotifier* m_notifier;
};

} // namespace

std::unique_ptr<DescriptorWatch> watchDescriptor(int descriptor,
                                                 std::function<void()> whenReadable) {
    return std::make_unique<NotifierWatch>(descriptor, std::move(whenReadable));
}

CFRunLoopRef CFRunLoopGetCurrent() {
    // Never destroyed: a port that is torn down at exit would find half of the program gone.
    thread_local auto* const loop = new CFRunLoop;
    return loop;
}

CFRunLoopSourceRef CFMachPortCreateRunLoopSource(const CFMachPortRef& port,
                                                 std::int64_t /*order*/) {
    return std::make_shared<CFRunLoopSource>(CFRunLoopSource{port});
}

void CFRunLoopAddSource(CFRunLoopRef runLoop,
                        const CFRunLoopSourceRef& source,
                        CFRunLoopMode /*mode*/) {
    runLoop->sources.push_back(source);
    source->port->serveOnRunLoop();
    // The port outlives the loop, and would leave without letting go of what its way holds.
    QObject::connect(QCoreApplication::instance(),
                     &QCoreApplication::aboutToQuit,
                     QCoreApplication::instance(),
                     [weak = std::weak_ptr(source->port)] {
                         if (const auto port = weak.lock()) {
                             port->setEnabled(false);
                         }
                     });
}

NSTimerRef scheduledTimerWithTimeInterval(std::chrono::milliseconds interval,
                                          std::function<void()> action) {
    auto* const timer = new QTimer(QCoreApplication::instance());
    timer->setInterval(interval);
    // Coarse, so that the kernel may wake us together with others.
    timer->setTimerType(Qt::CoarseTimer);
    QObject::connect(timer, &QTimer::timeout, timer, std::move(action));
    timer->start();
    return std::make_shared<NSTimer>();
}

void dispatchAsyncOnMainQueue(std::function<void()> block) {
    // Never destroyed: at exit somebody may still have something to put off.
    static auto* const queue = new MainQueue;
    queue->add(std::move(block));
}

} // namespace pallistrom
