// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/MachPort.h"

#include "platform/linux/SettingsChanges.h"

#include <algorithm>
#include <utility>

namespace pallistrom {

CFMachPort::CFMachPort(KeyFilter filter, std::span<TapWay* const> ways)
    : m_filter(std::move(filter)), m_ways(ways) {
    SettingsChanges::setObserver([this] {
        if (isRunning()) {
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
    return isRunning() && isBestWay();
}

// Only ways that could not run when this one was chosen: one that could, and yet did not start, is
// not tried again and again.
bool CFMachPort::isBestWay() const {
    return std::none_of(m_betterWays.begin(), m_betterWays.end(), [](TapWay* way) {
        const auto obstacle = way->obstacle();
        return !obstacle || standsInEveryWay(*obstacle);
    });
}

void CFMachPort::serveOnRunLoop() {
    m_isServed = true;
    watchWay();
}

void CFMachPort::start() {
    m_betterWays.clear();
    for (TapWay* const way : m_ways) {
        const auto obstacle = way->obstacle();
        if (!obstacle && way->start(m_filter)) {
            m_way = way;
            watchWay();
            return;
        }
        if (obstacle && standsInEveryWay(*obstacle)) {
            return;
        }
        if (obstacle) {
            m_betterWays.push_back(way);
        }
    }
}

void CFMachPort::watchWay() {
    if (!m_isServed || !isRunning()) {
        return;
    }
    if (const auto descriptor = m_way->descriptor()) {
        m_watch = watchDescriptor(*descriptor, [this] { serveWay(); });
    }
    // What came in before anybody watched wakes nobody.
    serveWay();
}

void CFMachPort::serveWay() {
    m_way->serve();
    // It may have broken meanwhile, or been switched off by what it served.
    if (!isRunning()) {
        m_watch.reset();
    }
}

} // namespace pallistrom
