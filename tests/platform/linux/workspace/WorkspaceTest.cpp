// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/Workspace.h"

#include "WindowLoop.h"
#include "platform/AccessibilityTrust.h"

#include <QWidget>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <string_view>

namespace pallistrom {

namespace {

constexpr std::string_view accessLink =
    "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

class WorkspaceTest : public testing::Test {
protected:
    WorkspaceTest() {
        // No way to the keys of whoever runs the tests, and no bus of theirs.
        setenv("DISPLAY", "", 1);                           // NOLINT(concurrency-mt-unsafe)
        setenv("WAYLAND_DISPLAY", "", 1);                   // NOLINT(concurrency-mt-unsafe)
        setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1); // NOLINT(concurrency-mt-unsafe)
        setenv("DBUS_SYSTEM_BUS_ADDRESS", "disabled:", 1);  // NOLINT(concurrency-mt-unsafe)
    }

    WindowLoop loop;
};

QWidget* openWindow() {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) {
            return window;
        }
    }
    return nullptr;
}

TEST_F(WorkspaceTest, opensTheAccessPaneOnceHoweverOftenItIsAsked) {
    EXPECT_TRUE(openURL(accessLink));
    QWidget* const pane = openWindow();
    ASSERT_NE(pane, nullptr);
    EXPECT_EQ(pane->windowTitle().toStdString(), "Accessibility Access");
    EXPECT_TRUE(openURL(accessLink));
    EXPECT_EQ(QApplication::topLevelWidgets().size(), 1);
    EXPECT_EQ(openWindow(), pane);

    pane->close();
    loop.drain();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
    EXPECT_TRUE(openURL(accessLink));
    ASSERT_NE(openWindow(), nullptr);
    openWindow()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST_F(WorkspaceTest, opensNothingThatIsNoLinkOfOurs) {
    for (const std::string url : {"",
                                  "mailto",
                                  "mailto:a b",
                                  "mailto:a?subject=%zz",
                                  "mailto:\xff",
                                  "http://[",
                                  "file:///etc/passwd",
                                  "javascript:1",
                                  "x-apple.systempreferences:com.apple.preference.security"}) {
        EXPECT_FALSE(openURL(url)) << url;
    }
    EXPECT_EQ(openWindow(), nullptr);
}

TEST_F(WorkspaceTest, neitherAsksNorChangesTheTrustWhenAskedToPrompt) {
    EXPECT_FALSE(AXIsProcessTrusted());
    EXPECT_FALSE(AXIsProcessTrustedWithOptions({{kAXTrustedCheckOptionPrompt, true}}));
    EXPECT_EQ(openWindow(), nullptr);
}

TEST(WorkspaceWithoutWindows, opensNothing) {
    const EventLoop loop;
    EXPECT_FALSE(openURL(accessLink));
    EXPECT_FALSE(openURL("mailto:a@b"));
    EXPECT_FALSE(accessibilityDisplayShouldReduceMotion());
}

} // namespace

} // namespace pallistrom
