// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/application/RequestQueue.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace pallistrom {

namespace {

constexpr std::size_t mostWaiting = 8;
constexpr std::chrono::milliseconds pause{100};

} // namespace

RequestQueue::RequestQueue(std::function<void(const ApplicationRequest&)> serve)
    : m_serve(std::move(serve)) {
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { serveWaiting(); });
}

void RequestQueue::add(ApplicationRequest request) {
    const auto same = std::find_if(m_waiting.begin(), m_waiting.end(), [&](const auto& waiting) {
        return waiting.asksLike(request);
    });
    if (same != m_waiting.end()) {
        // The later token is the one that a compositor still knows.
        *same = std::move(request);
        return;
    }
    if (m_waiting.size() < mostWaiting) {
        m_waiting.push_back(std::move(request));
    }
    if (m_isOpen && !m_timer.isActive()) {
        m_timer.start(std::chrono::milliseconds(0));
    }
}

void RequestQueue::open() {
    m_isOpen = true;
    if (!m_waiting.empty()) {
        m_timer.start(std::chrono::milliseconds(0));
    }
}

void RequestQueue::serveWaiting() {
    if (m_waiting.empty()) {
        return;
    }
    // Runs out once more after the last lot, so that the next request finds the pause over.
    m_timer.start(pause);
    for (const auto& request : std::exchange(m_waiting, {})) {
        m_serve(request);
    }
}

} // namespace pallistrom
