// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/MachPort.h"

#include "platform/linux/SettingsChanges.h"

#include <utility>

namespace pallistrom {

CFMachPort::CFMachPort(KeyFilter filter, std::span<TapWay* const> ways)
    : m_filter(std::move(filter)), m_ways(ways) {
    SettingsChanges::setObserver([this] {
        if (isEnabled()) {
            m_way->filterChanged();
        }
    });
}

CFMachPort::~CFMachPort() {
    SettingsChanges::setObserver({});
    setEnabled(false);
}

void CFMachPort::setEnabled(bool enabled) {
    if (enabled && isEnabled()) {
        return;
    }
    m_watch.reset();
    if (m_way != nullptr) {
        m_way->stop();
        m_way = nullptr;
    }
    if (enabled) {
        start();
    }
}

bool CFMachPort::isEnabled() const {
    return m_way != nullptr && m_way->isRunning();
}

void CFMachPort::serveOnRunLoop() {
    m_isServed = true;
    watchWay();
}

void CFMachPort::start() {
    for (TapWay* const way : m_ways) {
        if (way->canRun() && way->start(m_filter)) {
            m_way = way;
            watchWay();
            return;
        }
    }
}

void CFMachPort::watchWay() {
    if (!m_isServed || !isEnabled()) {
        return;
    }
    m_watch = watchDescriptor(m_way->descriptor(), [this] { serveWay(); });
    // What came in before anybody watched wakes nobody.
    serveWay();
}

void CFMachPort::serveWay() {
    m_way->serve();
    // It may have broken meanwhile, or been switched off by what it served.
    if (!isEnabled()) {
        m_watch.reset();
    }
}

} // namespace pallistrom
