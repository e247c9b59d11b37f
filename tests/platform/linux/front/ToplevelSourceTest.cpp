// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/ToplevelSource.h"

#include "Environment.h"
#include "EventLoop.h"
#include "FakeCompositor.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace pallistrom {

namespace {

FrontReport window(const std::string& name) {
    return FrontReport::of({.instance = "", .name = name});
}

using Offer = void (FakeCompositor::*)();

struct Kind {
    const char* name;
    Offer offer;
};

/// Both kinds of protocol say the same.
class ToplevelSourceTest : public testing::TestWithParam<Kind> {
protected:
    ToplevelSourceTest() {
        Environment::unset("WAYLAND_SOCKET");
        Environment::set("WAYLAND_DISPLAY", m_socket);
        m_compositor.emplace(m_socket);
    }

    void offer() { ((*m_compositor).*GetParam().offer)(); }

    void begin() {
        m_source.emplace([this] { ++m_changes; });
    }

    [[nodiscard]] bool waitFor(const FrontReport& report) {
        return m_loop.runUntil([&] { return m_source->report() == report; });
    }

    EventLoop m_loop;
    TemporaryFolder m_folder;
    std::filesystem::path m_socket = m_folder.path() / "wayland";
    std::optional<FakeCompositor> m_compositor;
    std::optional<ToplevelSource> m_source;
    int m_changes = 0;
};

TEST_P(ToplevelSourceTest, followsTheWindowInFront) {
    offer();
    const auto foot = m_compositor->open("foot");
    m_compositor->setActivated(foot, true);
    begin();
    EXPECT_EQ(m_source->report(), FrontReport::unknown());
    EXPECT_TRUE(waitFor(window("foot")));

    const auto firefox = m_compositor->open("firefox");
    m_compositor->setActivated(foot, false);
    EXPECT_TRUE(waitFor(FrontReport::nobody()));
    m_compositor->setActivated(firefox, true);
    EXPECT_TRUE(waitFor(window("firefox")));
    m_compositor->close(firefox);
    EXPECT_TRUE(waitFor(FrontReport::nobody()));
    m_compositor->setActivated(foot, true);
    EXPECT_TRUE(waitFor(window("foot")));
}

TEST_P(ToplevelSourceTest, tellsOfASwitchOnce) {
    offer();
    const auto foot = m_compositor->open("foot");
    const auto firefox = m_compositor->open("firefox");
    m_compositor->setActivated(foot, true);
    begin();
    ASSERT_TRUE(waitFor(window("foot")));
    m_changes = 0;
    m_compositor->setActivated(foot, false);
    m_compositor->setActivated(firefox, true);
    ASSERT_TRUE(waitFor(window("firefox")));
    EXPECT_EQ(m_changes, 1);
}

TEST_P(ToplevelSourceTest, waitsForACompositorThatOffersItsWindowsLater) {
    begin();
    m_loop.drain();
    EXPECT_EQ(m_source->report(), FrontReport::unknown());
    offer();
    EXPECT_TRUE(waitFor(FrontReport::nobody()));
}

TEST_P(ToplevelSourceTest, knowsNothingOnceTheCompositorHasGoneAndComesBackToIt) {
    offer();
    m_compositor->setActivated(m_compositor->open("foot"), true);
    begin();
    ASSERT_TRUE(waitFor(window("foot")));
    m_compositor.reset();
    EXPECT_TRUE(waitFor(FrontReport::unknown()));

    m_compositor.emplace(m_socket);
    offer();
    m_compositor->setActivated(m_compositor->open("firefox"), true);
    EXPECT_TRUE(waitFor(window("firefox")));
}

TEST_P(ToplevelSourceTest, beginsAnewWhenTheCompositorStopsListing) {
    offer();
    m_compositor->setActivated(m_compositor->open("foot"), true);
    begin();
    ASSERT_TRUE(waitFor(window("foot")));
    m_compositor->finish();
    EXPECT_TRUE(waitFor(FrontReport::unknown()));
    EXPECT_TRUE(waitFor(window("foot")));
    EXPECT_EQ(m_compositor->connections(), 2);
}

TEST_P(ToplevelSourceTest, knowsNothingOnceTheListIsWithdrawn) {
    offer();
    m_compositor->setActivated(m_compositor->open("foot"), true);
    begin();
    ASSERT_TRUE(waitFor(window("foot")));
    m_compositor->withdrawToplevels();
    EXPECT_TRUE(waitFor(FrontReport::unknown()));
}

INSTANTIATE_TEST_SUITE_P(,
                         ToplevelSourceTest,
                         testing::Values(Kind{"wlroots", &FakeCompositor::offerWlrToplevels},
                                         Kind{"cosmic", &FakeCompositor::offerCosmicToplevels}),
                         [](const auto& kind) { return std::string(kind.param.name); });

} // namespace

} // namespace pallistrom
