// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/ReducedMotion.h"

#include "EventLoop.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QProcess>

#include <gtest/gtest.h>

#include <optional>
#include <utility>
#include <vector>

namespace pallistrom {

namespace {

const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString object = QStringLiteral("/org/freedesktop/portal/desktop");
const QString group = QStringLiteral("org.gnome.desktop.interface");
const QString key = QStringLiteral("enable-animations");

// A desktop's portal on a bus of the test's own.
class FakePortal final : public QDBusVirtualObject {
public:
    explicit FakePortal(QDBusConnection bus) : m_bus(std::move(bus)) {
        m_bus.registerVirtualObject(object, this);
        m_bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    std::optional<QVariant> value; ///< the answer; none for silence
    std::vector<QDBusMessage> questions;

    void change(const QString& changedKey, const QVariant& newValue) {
        auto signal =
            QDBusMessage::createSignal(object, interface, QStringLiteral("SettingChanged"));
        signal << group << changedKey << QVariant::fromValue(QDBusVariant(newValue));
        m_bus.send(signal);
    }

    void answer(const QDBusMessage& question) {
        m_bus.send(question.createReply(
            QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(*value))))));
    }

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& /*bus*/) override {
        questions.push_back(message);
        message.setDelayedReply(true);
        if (value) {
            answer(message);
        }
        return true;
    }

private:
    QDBusConnection m_bus;
};

class ReducedMotionTest : public testing::Test {
protected:
    void SetUp() override {
        daemon.start(QStringLiteral("dbus-daemon"),
                     {QStringLiteral("--session"),
                      QStringLiteral("--nofork"),
                      QStringLiteral("--print-address=1")});
        if (!daemon.waitForStarted()) {
            GTEST_SKIP() << "not installed: dbus-daemon";
        }
        ASSERT_TRUE(daemon.waitForReadyRead());
        address = QString::fromLatin1(daemon.readLine().trimmed());
    }

    void TearDown() override {
        for (const QString& name : names) {
            QDBusConnection::disconnectFromBus(name);
        }
        daemon.kill();
        daemon.waitForFinished();
    }

    [[nodiscard]] QDBusConnection connection(const QString& name) {
        names.push_back(name);
        return QDBusConnection::connectToBus(address, name);
    }

    EventLoop loop;
    QProcess daemon;
    QString address;
    std::vector<QString> names;
};

TEST_F(ReducedMotionTest, isAskedForWhereThePortalSaysSo) {
    FakePortal portal(connection(QStringLiteral("portal")));
    portal.value = false;
    const ReducedMotion motion(connection(QStringLiteral("us")));
    EXPECT_FALSE(motion.isAskedFor());
    EXPECT_TRUE(loop.runUntil([&] { return motion.isAskedFor(); }));
    ASSERT_EQ(portal.questions.size(), 1U);
    EXPECT_EQ(portal.questions.front().arguments(), (QVariantList{group, key}));
}

TEST_F(ReducedMotionTest, followsChangesAndNoOtherSettings) {
    FakePortal portal(connection(QStringLiteral("portal")));
    portal.value = true;
    const ReducedMotion motion(connection(QStringLiteral("us")));
    ASSERT_TRUE(loop.runUntil([&] { return portal.questions.size() == 1; }));
    portal.change(key, false);
    EXPECT_TRUE(loop.runUntil([&] { return motion.isAskedFor(); }));
    portal.change(QStringLiteral("cursor-blink"), true);
    portal.change(key, QStringLiteral("no truth value"));
    portal.change(key, true);
    EXPECT_TRUE(loop.runUntil([&] { return !motion.isAskedFor(); }));
    EXPECT_EQ(portal.questions.size(), 1U);
}

TEST_F(ReducedMotionTest, waitsForNoPortalThatIsSilent) {
    FakePortal portal(connection(QStringLiteral("portal")));
    const ReducedMotion motion(connection(QStringLiteral("us")));
    ASSERT_TRUE(loop.runUntil([&] { return !portal.questions.empty(); }));
    EXPECT_FALSE(motion.isAskedFor());
    portal.value = false;
    portal.answer(portal.questions.front());
    EXPECT_TRUE(loop.runUntil([&] { return motion.isAskedFor(); }));
}

TEST_F(ReducedMotionTest, isNotAskedForWithoutAPortal) {
    const ReducedMotion motion(connection(QStringLiteral("us")));
    loop.drain();
    EXPECT_FALSE(motion.isAskedFor());
}

TEST(ReducedMotionWithoutABus, isNotAskedFor) {
    const EventLoop loop;
    const ReducedMotion motion(QDBusConnection(QStringLiteral("none")));
    EXPECT_FALSE(motion.isAskedFor());
}

TEST(ReducedMotionInKde, isAskedForByADurationOfNothing) {
    const auto isAskedFor = ReducedMotion::isAskedForIn;
    EXPECT_TRUE(isAskedFor("[General]\na=b\n[KDE]\nAnimationDurationFactor=0\n"));
    EXPECT_TRUE(isAskedFor("[KDE]\nAnimationDurationFactor = 0.0\r\n"));
    EXPECT_FALSE(isAskedFor("[KDE]\nAnimationDurationFactor=0.5\n"));
    EXPECT_FALSE(isAskedFor("[KDE]\nAnimationDurationFactor=\n"));
    EXPECT_FALSE(isAskedFor("[KDE]\nAnimationDurationFactor=x\n"));
    EXPECT_FALSE(isAskedFor("[General]\nAnimationDurationFactor=0\n"));
    EXPECT_FALSE(isAskedFor(""));
}

} // namespace

} // namespace pallistrom
