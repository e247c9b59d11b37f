// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/MainQueue.h"

#include <chrono>
#include <utility>

namespace pallistrom {

MainQueue::MainQueue() {
    m_nextTurn.setSingleShot(true);
    m_nextTurn.setInterval(std::chrono::milliseconds(0));
    QObject::connect(&m_nextTurn, &QTimer::timeout, &m_nextTurn, [this] { run(); });
}

void MainQueue::add(std::function<void()> block) {
    m_blocks.push_back(std::move(block));
    m_nextTurn.start();
}

void MainQueue::run() {
    for (const auto& block : std::exchange(m_blocks, {})) {
        block();
    }
}

} // namespace pallistrom
