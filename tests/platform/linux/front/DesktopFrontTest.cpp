// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "BusDesktop.h"
#include "BusFrontTest.h"
#include "Deadline.h"
#include "Tools.h"
#include "platform/linux/front/GnomeExtension.h"

#include <QDBusMessage>

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace pallistrom {

namespace {

const std::string fieldProgram = FIELD_FOLDER "/field-gtk3";

class KWinFront : public BusFrontTest {
protected:
    void SetUp() override {
        BusFrontTest::SetUp();
        const std::string missing = e2e::missingPrograms({"/usr/bin/kwin_wayland", fieldProgram});
        if (!missing.empty()) {
            GTEST_SKIP() << missing;
        }
    }
};

TEST_F(KWinFront, isToldByTheScriptThatIsGivenToIt) {
    auto desktop = BusDesktop::kwin(*m_bus);
    const auto terminal = desktop.openWindow("alacritty");
    begin();
    // Known at once, without another window coming to the front.
    EXPECT_TRUE(waitForWindow("alacritty"));
    {
        const auto editor = desktop.openWindow("editor");
        EXPECT_TRUE(waitForWindow("editor"));
    }
    EXPECT_TRUE(waitForWindow("alacritty"));
}

TEST_F(KWinFront, isToldAgainByAWindowManagerThatWasStartedAnew) {
    begin();
    {
        auto desktop = BusDesktop::kwin(*m_bus);
        const auto editor = desktop.openWindow("editor");
        ASSERT_TRUE(waitForWindow("editor"));
        desktop.end();
        EXPECT_TRUE(waitFor(FrontReport::unknown()));
    }
    auto desktop = BusDesktop::kwin(*m_bus);
    const auto terminal = desktop.openWindow("alacritty");
    EXPECT_TRUE(waitForWindow("alacritty"));
}

TEST_F(KWinFront, isToldAgainAfterARunThatWasKilled) {
    auto desktop = BusDesktop::kwin(*m_bus);
    const auto editor = desktop.openWindow("editor");
    begin();
    ASSERT_TRUE(waitForWindow("editor"));
    // Whoever is killed takes no script out.
    QDBusConnection::disconnectFromBus(QStringLiteral("source"));
    m_source.reset();
    m_source.emplace(connection("next"), [this] { ++m_changes; });
    EXPECT_TRUE(waitForWindow("editor"));
}

class GnomeFront : public BusFrontTest {
protected:
    void SetUp() override {
        BusFrontTest::SetUp();
        const std::string missing = e2e::missingPrograms({"gnome-shell", fieldProgram});
        if (!missing.empty()) {
            GTEST_SKIP() << missing;
        }
    }

    // The shell begins with its overview, where no window has the keyboard. While it comes up it
    // does not listen.
    void leaveOverview() const {
        const auto property = [this](const char* method, std::vector<std::string> arguments) {
            arguments.insert(arguments.begin(), {"org.gnome.Shell", "OverviewActive"});
            return m_bus->answer("org.gnome.Shell",
                                 "/org/gnome/Shell",
                                 std::string("org.freedesktop.DBus.Properties.") + method,
                                 arguments);
        };
        EXPECT_TRUE(waitUntil(
            [&] { return property("Set", {"<false>"}) && property("Get", {}) == "(<false>,)"; }));
    }

    [[nodiscard]] bool waitForState(GnomeExtension::State state) {
        return m_loop.runUntil([&] { return m_extension->state() == state; });
    }

    void askForExtension() {
        m_extension.emplace(connection("pane"), [] {});
    }

    std::optional<GnomeExtension> m_extension;
};

TEST_F(GnomeFront, isToldOnceTheExtensionIsSwitchedOn) {
    auto desktop = BusDesktop::gnomeShell(*m_bus, DATA_FOLDER);
    begin();
    m_loop.drain();
    askForExtension();
    ASSERT_TRUE(waitForState(GnomeExtension::State::SwitchedOff));
    EXPECT_EQ(m_source->report(), FrontReport::unknown());
    m_extension->switchOn();
    EXPECT_TRUE(waitForState(GnomeExtension::State::SwitchedOn));
    EXPECT_TRUE(waitFor(FrontReport::nobody()));

    leaveOverview();
    const auto terminal = desktop.openWindow("alacritty");
    EXPECT_TRUE(waitForWindow("alacritty"));
    {
        const auto editor = desktop.openWindow("editor");
        EXPECT_TRUE(waitForWindow("editor"));
    }
    EXPECT_TRUE(waitForWindow("alacritty"));

    // A program that starts later is told of what is there.
    m_source.reset();
    QDBusConnection::disconnectFromBus(QStringLiteral("source"));
    m_source.emplace(connection("next"), [this] { ++m_changes; });
    EXPECT_TRUE(waitForWindow("alacritty"));

    EXPECT_TRUE(m_bus->call("org.gnome.Shell",
                            "/org/gnome/Shell",
                            "org.gnome.Shell.Extensions.DisableExtension",
                            {EXTENSION}));
    EXPECT_TRUE(waitFor(FrontReport::unknown()));
    EXPECT_TRUE(waitForState(GnomeExtension::State::SwitchedOff));
}

TEST_F(GnomeFront, knowsWhereTheExtensionIsMissing) {
    const std::filesystem::path nothing = m_bus->home().path() / "nothing";
    auto desktop = BusDesktop::gnomeShell(*m_bus, nothing);
    askForExtension();
    EXPECT_TRUE(waitForState(GnomeExtension::State::Missing));
}

} // namespace

} // namespace pallistrom
