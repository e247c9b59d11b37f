// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Clock.h"

#include "Environment.h"
#include "Tools.h"
#include "XServer.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace pallistrom {

namespace {

using namespace std::chrono_literals;

class X11ClockTest : public testing::Test {
protected:
    void SetUp() override {
        if (const std::string missing = e2e::missingPrograms({"Xvfb"}); !missing.empty()) {
            GTEST_SKIP() << missing;
        }
        Environment::unset("WAYLAND_DISPLAY");
        m_server.emplace(Command{.arguments = {"Xvfb", "-screen", "0", "300x200x24"},
                                 .environment = {{"PATH", Environment::value("PATH")}}});
        Environment::set("DISPLAY", m_server->name());
        connection = X11Connection::open();
        ASSERT_NE(connection, nullptr);
    }

    // The stamp of an event that happens now.
    [[nodiscard]] xcb_timestamp_t stampNow() const {
        xcb_connection_t* const server = connection->get();
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(server, connection->root(), XCB_CW_EVENT_MASK, &events);
        xcb_change_property(server,
                            XCB_PROP_MODE_APPEND,
                            connection->root(),
                            XCB_ATOM_WM_NAME,
                            XCB_ATOM_STRING,
                            8,
                            0,
                            nullptr);
        xcb_flush(server);
        const XcbOwned<xcb_generic_event_t> event(xcb_wait_for_event(server));
        return reinterpret_cast<const xcb_property_notify_event_t&>(*event).time;
    }

    std::unique_ptr<X11Connection> connection;

private:
    std::optional<e2e::XServer> m_server;
};

TEST_F(X11ClockTest, tellsHowLongAgoAnEventWas) {
    const X11Clock clock(*connection);
    const xcb_timestamp_t stamp = stampNow();
    EXPECT_GE(clock.since(stamp), 0ms);
    EXPECT_LT(clock.since(stamp), 1min);
    EXPECT_GE(clock.since(stamp - 3'600'000), 1h);
    EXPECT_LT(clock.since(stamp - 3'600'000), 1h + 1min);
}

TEST_F(X11ClockTest, countsOnWhereStampsBeginAnew) {
    const X11Clock clock(*connection);
    // Of a server that has counted for less than this.
    const xcb_timestamp_t beforeTheFirst = stampNow() - 1'000'000'000;
    EXPECT_GE(clock.since(beforeTheFirst), 1'000'000s);
    EXPECT_LT(clock.since(beforeTheFirst), 1'000'000s + 1min);
}

} // namespace

} // namespace pallistrom
