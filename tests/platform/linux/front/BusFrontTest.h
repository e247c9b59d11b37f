// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "EventLoop.h"
#include "SessionBus.h"
#include "platform/linux/front/BusFrontSource.h"

#include <QDBusConnection>

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace pallistrom {

/// A source on a session bus of the test's own.
class BusFrontTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Returns a connection to the bus, another one for each name.
    QDBusConnection connection(const char* name);

    void begin();

    [[nodiscard]] bool waitFor(const FrontReport& report);

    /// Waits for a window of an application that is called so, in front.
    [[nodiscard]] bool waitForWindow(const std::string& application);

    EventLoop m_loop;
    std::optional<e2e::SessionBus> m_bus;
    std::optional<BusFrontSource> m_source;
    int m_changes = 0;

private:
    QStringList m_connections;
};

} // namespace pallistrom
