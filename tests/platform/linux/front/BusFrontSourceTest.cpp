// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "BusFrontTest.h"
#include "FakeKWin.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QFile>
#include <QStringList>
#include <QVariantList>

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace pallistrom {

namespace {

/// A source, and somebody who speaks to it as the desktops do.
class BusFrontSourceTest : public BusFrontTest {
protected:
    void SetUp() override {
        BusFrontTest::SetUp();
        if (!IsSkipped()) {
            m_desktop.emplace(connection("desktop"));
        }
    }

    void TearDown() override {
        m_kwin.reset();
        m_desktop.reset();
        BusFrontTest::TearDown();
    }

    void startKWin(FakeKWin::Generation generation = FakeKWin::Generation::Plasma6) {
        m_kwin.emplace(*m_desktop, generation);
    }

    static QDBusMessage said(const char* member, const QVariantList& arguments = {}) {
        auto call = QDBusMessage::createMethodCall(QStringLiteral("org.pallistrom.Front1"),
                                                   QStringLiteral("/org/pallistrom/Front1"),
                                                   QStringLiteral("org.pallistrom.Front1"),
                                                   QString::fromLatin1(member));
        call.setArguments(arguments);
        return call;
    }

    void say(const char* member, const QVariantList& arguments = {}) {
        m_desktop->send(said(member, arguments));
    }

    // Whether the answer is no error.
    bool isAccepted(const QDBusConnection& speaker, const QDBusMessage& call) {
        const QDBusPendingCallWatcher answer(speaker.asyncCall(call));
        EXPECT_TRUE(m_loop.runUntil([&] { return answer.isFinished(); }));
        return !answer.isError();
    }

    [[nodiscard]] bool waitForCalls(const QStringList& calls) {
        return m_loop.runUntil([&] { return m_kwin->calls() == calls; });
    }

    [[nodiscard]] bool waitUntilTheScriptRuns() {
        return m_loop.runUntil([&] {
            return !m_kwin->calls().isEmpty() &&
                   m_kwin->calls().back().startsWith(QStringLiteral("run"));
        });
    }

    std::optional<QDBusConnection> m_desktop;
    std::optional<FakeKWin> m_kwin;
};

const QVariantList editor{QStringLiteral("editor"), QStringLiteral("Editor")};
const FrontReport editorReport = FrontReport::of({.instance = "editor", .name = "Editor"});

TEST_F(BusFrontSourceTest, givesTheScriptToTheWindowManagerOfPlasma6) {
    startKWin();
    begin();
    EXPECT_TRUE(waitForCalls({QStringLiteral("unloadScript"),
                              QStringLiteral("loadScript"),
                              QStringLiteral("run /Scripting/Script7")}));
    QFile script(m_kwin->file());
    ASSERT_TRUE(script.open(QIODevice::ReadOnly));
    EXPECT_TRUE(script.readAll().contains("\"org.pallistrom.Front1\", \"/org/pallistrom/Front1\""));
}

TEST_F(BusFrontSourceTest, givesTheScriptToTheWindowManagerOfPlasma5) {
    startKWin(FakeKWin::Generation::Plasma5);
    begin();
    EXPECT_TRUE(waitForCalls({QStringLiteral("unloadScript"),
                              QStringLiteral("loadScript"),
                              QStringLiteral("run /Scripting/Script7"),
                              QStringLiteral("run /7")}));
}

TEST_F(BusFrontSourceTest, asksAWindowManagerAgainThatTakesNoScriptYet) {
    startKWin();
    m_kwin->refuse(1);
    begin();
    EXPECT_TRUE(waitForCalls({QStringLiteral("unloadScript"),
                              QStringLiteral("loadScript"),
                              QStringLiteral("unloadScript"),
                              QStringLiteral("loadScript"),
                              QStringLiteral("run /Scripting/Script7")}));
}

TEST_F(BusFrontSourceTest, givesTheScriptToAWindowManagerThatComesLaterOrAgain) {
    begin();
    for (int i = 0; i < 3; ++i) {
        startKWin();
        ASSERT_TRUE(waitUntilTheScriptRuns());
        say("ShowWindow", editor);
        EXPECT_TRUE(waitFor(editorReport));
        m_kwin.reset();
        EXPECT_TRUE(waitFor(FrontReport::unknown()));
    }
}

TEST_F(BusFrontSourceTest, takesTheScriptOutInTheEnd) {
    startKWin();
    begin();
    ASSERT_TRUE(waitUntilTheScriptRuns());
    m_source.reset();
    EXPECT_TRUE(
        m_loop.runUntil([&] { return m_kwin->calls().back() == QStringLiteral("unloadScript"); }));
}

TEST_F(BusFrontSourceTest, tellsOfEachChangeOnce) {
    startKWin();
    begin();
    ASSERT_TRUE(waitUntilTheScriptRuns());
    say("ShowWindow", editor);
    say("ShowWindow", editor);
    say("ShowNobody");
    EXPECT_TRUE(waitFor(FrontReport::nobody()));
    EXPECT_EQ(m_changes, 2);
    say("Leave");
    EXPECT_TRUE(waitFor(FrontReport::unknown()));
}

TEST_F(BusFrontSourceTest, answersWhoeverWantsAnAnswer) {
    startKWin();
    begin();
    ASSERT_TRUE(waitUntilTheScriptRuns());
    EXPECT_TRUE(isAccepted(*m_desktop, said("ShowWindow", editor)));
    EXPECT_FALSE(isAccepted(*m_desktop, said("ShowWindow", {1, 2})));
    EXPECT_FALSE(isAccepted(*m_desktop, said("Unheard")));
    EXPECT_EQ(m_source->report(), editorReport);
}

TEST_F(BusFrontSourceTest, believesNobodyButTheDesktop) {
    startKWin();
    begin();
    ASSERT_TRUE(waitUntilTheScriptRuns());
    EXPECT_FALSE(isAccepted(connection("stranger"), said("ShowWindow", editor)));
    EXPECT_EQ(m_source->report(), FrontReport::unknown());
    EXPECT_EQ(m_changes, 0);
}

// A script that is left behind must not start the program again.
TEST_F(BusFrontSourceTest, leavesANameBehindThatNobodyIsStartedFor) {
    begin();
    m_source.reset();
    EXPECT_FALSE(m_bus->call(
        "org.pallistrom.Front1", "/org/pallistrom/Front1", "org.pallistrom.Front1.ShowNobody", {}));
}

TEST_F(BusFrontSourceTest, doesWithoutABus) {
    m_source.emplace(QDBusConnection(QStringLiteral("there is none")), [this] { ++m_changes; });
    m_loop.drain();
    EXPECT_EQ(m_source->report(), FrontReport::unknown());
}

} // namespace

} // namespace pallistrom
