// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/X11FrontSource.h"

#include "ActiveWindow.h"
#include "EventLoop.h"
#include "OneServer.h"
#include "platform/linux/front/SessionFrontWatch.h"
#include "platform/linux/x11/X11Session.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <set>
#include <string>

namespace pallistrom {

namespace {

class X11FrontSourceTest : public testing::Test {
protected:
    void SetUp() override {
        if (const std::string missing = OneServer::missing(); !missing.empty()) {
            GTEST_SKIP() << missing;
        }
        server.emplace();
    }

    void bringToFront(const std::string& windowClass) const {
        pallistrom::bringToFront(*server->connection, windowClass);
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

TEST_F(X11FrontSourceTest, readsNamesWhateverTheirLetters) {
    watch();
    bringToFront("\xC3\x9C"
                 "ber"); // as programs write them
    ASSERT_TRUE(loop.runUntil([this] { return front->window().name == "\u00DCber"; }));
    bringToFront("\xDC"
                 "bung"); // as the standard says
    ASSERT_TRUE(loop.runUntil([this] { return front->window().name == "\u00DCbung"; }));
    bringToFront(std::string(2 * WindowClass::mostBytes - 3, 'x'));
    EXPECT_TRUE(loop.runUntil(
        [this] { return front->window().name == std::string(WindowClass::mostBytes, 'x'); }));
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
