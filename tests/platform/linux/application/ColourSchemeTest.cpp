// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/application/ColourScheme.h"

#include "OffscreenApplication.h"
#include "platform/linux/application/DarkPalette.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QStandardPaths>

#include <gtest/gtest.h>

#include <memory>

namespace pallistrom {

namespace {

QString path() {
    return QStringLiteral("/org/freedesktop/portal/desktop");
}

/// The desktop's portal, as far as it knows a colour scheme.
class Portal : public QDBusVirtualObject {
public:
    Portal(const QString& address, uint scheme)
        : m_scheme(scheme),
          m_bus(QDBusConnection::connectToBus(address, QStringLiteral("portal"))) {
        m_bus.registerVirtualObject(path(), this);
        m_bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    Portal(const Portal&) = delete;
    Portal& operator=(const Portal&) = delete;

    ~Portal() override {
        m_bus.unregisterService(QStringLiteral("org.freedesktop.portal.Desktop"));
        QDBusConnection::disconnectFromBus(QStringLiteral("portal"));
    }

    void change(const QString& key, const QVariant& value) {
        auto signal = QDBusMessage::createSignal(path(),
                                                 QStringLiteral("org.freedesktop.portal.Settings"),
                                                 QStringLiteral("SettingChanged"));
        signal << QStringLiteral("org.freedesktop.appearance") << key
               << QVariant::fromValue(QDBusVariant(value));
        m_bus.send(signal);
    }

    void change(uint scheme) {
        m_scheme = scheme;
        change(QStringLiteral("color-scheme"), scheme);
    }

    QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        const QDBusVariant inner{QVariant(m_scheme)};
        bus.send(
            message.createReply(QVariant::fromValue(QDBusVariant(QVariant::fromValue(inner)))));
        return message.member() == QStringLiteral("Read");
    }

private:
    uint m_scheme;
    QDBusConnection m_bus;
};

class ColourSchemeTest : public testing::Test {
protected:
    /// One bus for all: Qt finds its way to the session bus once.
    static void SetUpTestSuite() {
        if (QStandardPaths::findExecutable(QStringLiteral("dbus-daemon")).isEmpty()) {
            return;
        }
        static QProcess daemon;
        daemon.start(QStringLiteral("dbus-daemon"),
                     {QStringLiteral("--session"),
                      QStringLiteral("--nofork"),
                      QStringLiteral("--print-address=1")});
        daemon.waitForReadyRead();
        address = QString::fromUtf8(daemon.readLine()).trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address.toUtf8());
        bus = &daemon;
    }

    static void TearDownTestSuite() {
        if (bus != nullptr) {
            bus->terminate();
            bus->waitForFinished();
        }
    }

    void SetUp() override {
        if (address.isEmpty()) {
            GTEST_SKIP() << "not there: dbus-daemon";
        }
        // As in the program. Without a style there are no colours to go back to.
        QApplication::setStyle(QStringLiteral("Fusion"));
        QApplication::setPalette(QPalette());
        ASSERT_FALSE(isDark(QApplication::palette()));
    }

    static bool becomesDark() {
        return OffscreenApplication::runUntil([] { return isDark(QApplication::palette()); });
    }

    static bool becomesLight() {
        return OffscreenApplication::runUntil([] { return !isDark(QApplication::palette()); });
    }

    /// Waits until all that the portal has said has been heard.
    static void hearThePortalOut() {
        const auto call =
            QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"),
                                           path(),
                                           QStringLiteral("org.freedesktop.portal.Settings"),
                                           QStringLiteral("Read"));
        const QDBusPendingCallWatcher answer(QDBusConnection::sessionBus().asyncCall(call));
        ASSERT_TRUE(OffscreenApplication::runUntil([&] { return answer.isFinished(); }));
        QCoreApplication::processEvents();
    }

    static inline QString address;
    static inline QProcess* bus = nullptr;
    OffscreenApplication application;
};

constexpr uint noWish = 0;
constexpr uint dark = 1;
constexpr uint light = 2;

TEST_F(ColourSchemeTest, isTheOneThatTheDesktopWantsAtTheStart) {
    const Portal portal(address, dark);
    const ColourScheme scheme;
    EXPECT_TRUE(becomesDark());
}

TEST_F(ColourSchemeTest, followsTheDesktopThereAndBack) {
    Portal portal(address, noWish);
    const QPalette before = QApplication::palette();
    const ColourScheme scheme;
    portal.change(dark);
    EXPECT_TRUE(becomesDark());
    portal.change(light);
    EXPECT_TRUE(becomesLight());
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), before.color(QPalette::Window));
    portal.change(dark);
    EXPECT_TRUE(becomesDark());
}

TEST_F(ColourSchemeTest, heedsNoOtherSettingsAndNoNonsense) {
    Portal portal(address, noWish);
    const ColourScheme scheme;
    portal.change(dark);
    ASSERT_TRUE(becomesDark());
    portal.change(QStringLiteral("contrast"), light);
    hearThePortalOut();
    EXPECT_TRUE(isDark(QApplication::palette()));
    portal.change(light);
    ASSERT_TRUE(becomesLight());
    portal.change(QStringLiteral("contrast"), dark);
    portal.change(QStringLiteral("color-scheme"), QStringLiteral("1"));
    hearThePortalOut();
    EXPECT_FALSE(isDark(QApplication::palette()));
}

TEST_F(ColourSchemeTest, leavesADesktopAloneWhoseColoursAreDarkAlready) {
    QPalette own(QColor(10, 20, 30));
    own.setColor(QPalette::Base, QColor(5, 10, 15));
    QApplication::setPalette(own);
    Portal portal(address, dark);
    const ColourScheme scheme;
    for (const uint wish : {dark, light}) {
        portal.change(wish);
        hearThePortalOut();
        EXPECT_EQ(QApplication::palette().color(QPalette::Window), own.color(QPalette::Window));
        EXPECT_EQ(QApplication::palette().color(QPalette::Base), own.color(QPalette::Base));
    }
}

} // namespace

} // namespace pallistrom
