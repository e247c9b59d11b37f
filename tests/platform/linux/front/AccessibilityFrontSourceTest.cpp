// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/AccessibilityFrontSource.h"

#include "ChildProcess.h"
#include "Environment.h"
#include "EventLoop.h"
#include "ScreenReader.h"
#include "SessionBus.h"
#include "Tools.h"
#include "VirtualDisplay.h"

#include <QTimer>

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <optional>
#include <string>
#include <vector>

namespace pallistrom {

namespace {

using Wanted = FrontSource::Wanted;

const std::string gtkField = FIELD_FOLDER "/field-gtk3";
const std::string qtField = FIELD_FOLDER "/field-qt6";

/// A desktop with a bus for accessibility, which nobody has started yet.
class AccessibilityFrontSourceTest : public testing::Test {
protected:
    void SetUp() override {
        const std::string missing = e2e::missingPrograms({"Xvfb",
                                                          "openbox",
                                                          "dbus-daemon",
                                                          "gdbus",
                                                          "xdotool",
                                                          "/usr/libexec/at-spi-bus-launcher",
                                                          gtkField,
                                                          qtField});
        if (!missing.empty()) {
            GTEST_SKIP() << missing;
        }
        m_display.emplace();
        m_bus.emplace(m_display->name());
        Environment::set("DBUS_SESSION_BUS_ADDRESS",
                         m_bus->environment().at("DBUS_SESSION_BUS_ADDRESS"));
    }

    void TearDown() override {
        m_source.reset();
        Environment::unset("DBUS_SESSION_BUS_ADDRESS");
    }

    void begin() {
        m_source.emplace([this] { ++m_changes; });
        m_source->setWanted(Wanted::Yes);
    }

    /// Somebody is there who needs it.
    void switchOn() { m_reader.emplace(*m_bus); }

    [[nodiscard]] ChildProcess start(const std::vector<std::string>& arguments) {
        auto environment = m_bus->environment();
        environment.erase("NO_AT_BRIDGE");
        environment.erase("GTK_A11Y");
        return ChildProcess{{.arguments = arguments,
                             .environment = environment,
                             .errorFile = m_bus->home().path() / "windows.log"}};
    }

    [[nodiscard]] bool waitForProgram(const std::string& name) {
        // A program tells nothing of a window that came to the front before the program knew that
        // somebody listens. People go on changing windows.
        QTimer change;
        QObject::connect(&change, &QTimer::timeout, &change, [this] {
            // There may be no window yet.
            ChildProcess activate{
                {.arguments = {"xdotool", "search", "--name", "Text field", "windowactivate", "%@"},
                 .environment = m_bus->environment(),
                 .errorFile = "/dev/null"}};
            static_cast<void>(activate.wait());
        });
        change.start(std::chrono::seconds(1));
        return m_loop.runUntil([&] { return m_source->report().window.name == name; });
    }

    [[nodiscard]] bool waitForUnknown() {
        return m_loop.runUntil([&] { return m_source->report() == FrontReport::unknown(); });
    }

    [[nodiscard]] bool isThere(const std::string& name) const {
        return m_bus->call("org.freedesktop.DBus",
                           "/org/freedesktop/DBus",
                           "org.freedesktop.DBus.GetNameOwner",
                           {name});
    }

    EventLoop m_loop;
    std::optional<e2e::VirtualDisplay> m_display;
    std::optional<e2e::SessionBus> m_bus;
    std::optional<e2e::ScreenReader> m_reader;
    std::optional<AccessibilityFrontSource> m_source;
    int m_changes = 0;
};

TEST_F(AccessibilityFrontSourceTest, isToldByProgramsOfEachToolkit) {
    switchOn();
    begin();
    EXPECT_EQ(m_source->report(), FrontReport::unknown());
    // What is there already is known once it comes to the front.
    ASSERT_TRUE(m_loop.runUntil([this] { return m_source->isListening(); }));
    const ChildProcess gtk = start({gtkField});
    EXPECT_TRUE(waitForProgram("field-gtk3"));
    EXPECT_EQ(m_source->report().window.instance, "field-gtk3");
    EXPECT_FALSE(m_source->report().isInTerminal);
    {
        ChildProcess qt = start({qtField});
        EXPECT_TRUE(waitForProgram("field-qt6"));
        qt.signal(SIGKILL);
    }
    EXPECT_TRUE(waitForProgram("field-gtk3"));
}

TEST_F(AccessibilityFrontSourceTest, knowsATerminalByWhatHasTheKeyboard) {
    if (const auto missing = e2e::missingPrograms({"xfce4-terminal"}); !missing.empty()) {
        GTEST_SKIP() << missing;
    }
    switchOn();
    begin();
    ASSERT_TRUE(m_loop.runUntil([this] { return m_source->isListening(); }));
    const ChildProcess terminal = start({"xfce4-terminal", "--disable-server", "-x", "cat"});
    EXPECT_TRUE(m_loop.runUntil([this] { return m_source->report().isInTerminal; }));
    EXPECT_EQ(m_source->report().window.name, "xfce4-terminal");
}

TEST_F(AccessibilityFrontSourceTest, isUnknownOnceTheProgramInFrontHasGone) {
    switchOn();
    begin();
    ASSERT_TRUE(m_loop.runUntil([this] { return m_source->isListening(); }));
    ChildProcess gtk = start({gtkField});
    ASSERT_TRUE(waitForProgram("field-gtk3"));
    gtk.signal(SIGKILL);
    EXPECT_TRUE(waitForUnknown());
}

TEST_F(AccessibilityFrontSourceTest, startsNothingAndWaitsForSomebodyToSwitchItOn) {
    begin();
    EXPECT_TRUE(m_loop.runUntil([this] { return m_source->hasLooked(); }));
    EXPECT_FALSE(isThere("org.a11y.Bus"));
    EXPECT_FALSE(m_source->isListening());
    switchOn();
    EXPECT_TRUE(m_loop.runUntil([this] { return m_source->isListening(); }));
    EXPECT_TRUE(m_bus->call("org.a11y.Bus",
                            "/org/a11y/bus",
                            "org.freedesktop.DBus.Properties.Set",
                            {"org.a11y.Status", "IsEnabled", "<false>"}));
    EXPECT_TRUE(m_loop.runUntil([this] { return !m_source->isListening(); }));
}

TEST_F(AccessibilityFrontSourceTest, listensToNobodyWhereItIsNotWanted) {
    switchOn();
    begin();
    ASSERT_TRUE(m_loop.runUntil([this] { return m_source->isListening(); }));
    const ChildProcess gtk = start({gtkField});
    ASSERT_TRUE(waitForProgram("field-gtk3"));
    const int changes = m_changes;
    m_source->setWanted(Wanted::No);
    EXPECT_FALSE(m_source->isListening());
    EXPECT_EQ(m_source->report(), FrontReport::unknown());
    EXPECT_EQ(m_changes, changes);
}

} // namespace

} // namespace pallistrom
