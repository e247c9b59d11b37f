// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/X11FrontSource.h"

#include "EventLoop.h"
#include "OneServer.h"
#include "platform/linux/front/SessionFrontWatch.h"
#include "platform/linux/x11/X11Session.h"

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <cstring>
#include <memory>
#include <optional>
#include <set>
#include <string>

namespace pallistrom {

namespace {

xcb_atom_t activeWindow(xcb_connection_t* connection) {
    constexpr std::string_view name = "_NET_ACTIVE_WINDOW";
    const e2e::XReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    return reply->atom;
}

class X11FrontSourceTest : public testing::Test {
protected:
    void SetUp() override {
        if (const std::string missing = OneServer::missing(); !missing.empty()) {
            GTEST_SKIP() << missing;
        }
        server.emplace();
    }

    // As a window manager does with a window of that class.
    void bringToFront(const std::string& windowClass) const {
        const e2e::XConnection& c = *server->connection;
        const xcb_window_t window = xcb_generate_id(c);
        xcb_create_window(c, 0, window, c.rootWindow(), 0, 0, 1, 1, 0, 0, 0, 0, nullptr);
        const std::string bytes = windowClass + '\0' + windowClass + '\0';
        xcb_change_property(c,
                            XCB_PROP_MODE_REPLACE,
                            window,
                            XCB_ATOM_WM_CLASS,
                            XCB_ATOM_STRING,
                            8,
                            static_cast<std::uint32_t>(bytes.size()),
                            bytes.data());
        xcb_change_property(c,
                            XCB_PROP_MODE_REPLACE,
                            c.rootWindow(),
                            activeWindow(c),
                            XCB_ATOM_WINDOW,
                            32,
                            1,
                            &window);
        xcb_flush(c);
    }

    void watch() {
        const auto kindOf = [this](const WindowClass& window) {
            return keepers.contains(window.name) ? FrontApplication::KeepsItsKeys
                                                 : FrontApplication::TakesEditingKeys;
        };
        auto session = std::make_unique<SessionFrontWatch>(kindOf, [this] { ++changes; });
        session->addSource([](auto whenChanged) {
            return std::make_unique<X11FrontSource>(X11Session::open(), std::move(whenChanged));
        });
        front = std::move(session);
    }

    EventLoop loop;
    std::optional<OneServer> server;
    std::unique_ptr<FrontWatch> front;
    std::set<std::string> keepers{"XTerm", "Emacs"};
    int changes = 0;
};

TEST_F(X11FrontSourceTest, knowsWhoIsInFrontFromTheStart) {
    bringToFront("XTerm");
    static_cast<void>(activeWindow(*server->connection)); // An answer: all before it is done.
    watch();
    EXPECT_EQ(front->application(), FrontApplication::KeepsItsKeys);
    EXPECT_EQ(changes, 0);
}

TEST_F(X11FrontSourceTest, takesWhoeverIsNotKnownForOneThatTakesEditingKeys) {
    watch();
    EXPECT_EQ(front->application(), FrontApplication::TakesEditingKeys);
}

TEST_F(X11FrontSourceTest, tellsWhenAnotherKindOfApplicationComesToTheFront) {
    watch();
    bringToFront("XTerm");
    ASSERT_TRUE(loop.runUntil([this] { return changes == 1; }));
    EXPECT_EQ(front->application(), FrontApplication::KeepsItsKeys);
    bringToFront("Emacs");
    bringToFront("Gedit");
    ASSERT_TRUE(loop.runUntil(
        [this] { return front->application() == FrontApplication::TakesEditingKeys; }));
    EXPECT_EQ(front->window().name, "Gedit");
}

TEST_F(X11FrontSourceTest, followsWhatIsSaidOfTheApplicationInFront) {
    watch();
    bringToFront("XTerm");
    ASSERT_TRUE(loop.runUntil([this] { return changes == 1; }));
    keepers = {};
    EXPECT_EQ(front->application(), FrontApplication::TakesEditingKeys);
}

TEST_F(X11FrontSourceTest, knowsNothingOnceTheServerIsGone) {
    watch();
    server->end();
    ASSERT_TRUE(loop.runUntil([this] { return changes == 1; }));
    EXPECT_FALSE(front->isKnown());
    EXPECT_EQ(front->application(), std::nullopt);
    loop.drain();
    EXPECT_EQ(changes, 1);
}

TEST_F(X11FrontSourceTest, knowsNothingOfASessionThatNobodyTellsOf) {
    server->end();
    front = FrontWatch::ofSession([this] { ++changes; });
    EXPECT_EQ(front->application(), std::nullopt);
}

} // namespace

} // namespace pallistrom
