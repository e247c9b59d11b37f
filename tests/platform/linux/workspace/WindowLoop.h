// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "EventLoop.h"

#include <QApplication>

#include <cstdlib>
#include <memory>

namespace pallistrom {

/// The run loop of a test with windows, which nobody sees.
class WindowLoop final : public EventLoop {
public:
    WindowLoop()
        : EventLoop([](int& argc, char** argv) {
              setenv("QT_QPA_PLATFORM", "offscreen", 1); // NOLINT(concurrency-mt-unsafe)
              return std::make_unique<QApplication>(argc, argv);
          }) {}
};

} // namespace pallistrom
