// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "BusFrontTest.h"

#include "Tools.h"

namespace pallistrom {

void BusFrontTest::SetUp() {
    if (const std::string missing = e2e::missingPrograms({"dbus-daemon"}); !missing.empty()) {
        GTEST_SKIP() << missing;
    }
    m_bus.emplace("");
}

void BusFrontTest::TearDown() {
    m_source.reset();
    for (const QString& name : m_connections) {
        QDBusConnection::disconnectFromBus(name);
    }
}

QDBusConnection BusFrontTest::connection(const char* name) {
    m_connections.append(QString::fromLatin1(name));
    return QDBusConnection::connectToBus(
        QString::fromStdString(m_bus->environment().at("DBUS_SESSION_BUS_ADDRESS")),
        m_connections.back());
}

void BusFrontTest::begin() {
    m_source.emplace(connection("source"), [this] { ++m_changes; });
}

bool BusFrontTest::waitFor(const FrontReport& report) {
    return m_loop.runUntil([&] { return m_source->report() == report; });
}

bool BusFrontTest::waitForWindow(const std::string& application) {
    return m_loop.runUntil([&] {
        const WindowClass& window = m_source->report().window;
        return window.instance == application || window.name == application;
    });
}

} // namespace pallistrom
