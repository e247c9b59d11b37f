// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>

#include <functional>
#include <vector>

namespace pallistrom {

/// Blocks that wait for a later turn of the main thread's event loop. That thread alone uses it.
class MainQueue {
public:
    MainQueue();

    /// What is added while blocks run waits for the turn after.
    void add(std::function<void()> block);

private:
    void run();

    std::vector<std::function<void()>> m_blocks;
    QTimer m_nextTurn;
};

} // namespace pallistrom
