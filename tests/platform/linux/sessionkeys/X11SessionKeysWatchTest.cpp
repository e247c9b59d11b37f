// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sessionkeys/X11SessionKeysWatch.h"

#include "ChildProcess.h"
#include "EventLoop.h"
#include "Home.h"
#include "OneServer.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

namespace pallistrom {

namespace {

constexpr EvdevCode leftControl = 29;
constexpr EvdevCode capsLock = 58;

class X11SessionKeysWatchTest : public testing::Test {
protected:
    void SetUp() override {
        if (const std::string missing = OneServer::missing(); !missing.empty()) {
            GTEST_SKIP() << missing;
        }
        server.emplace();
    }

    void watch() {
        keys = SessionKeysWatch::ofSession([this] { ++changes; });
    }

    void setOption(const std::string& option) const {
        run({.arguments = {"setxkbmap", "-layout", "us", "-option", "", "-option", option},
             .environment = e2e::Home().environment(server->name())});
    }

    EventLoop loop;
    std::optional<OneServer> server;
    std::unique_ptr<SessionKeysWatch> keys;
    int changes = 0;
};

TEST_F(X11SessionKeysWatchTest, knowsTheSessionsModifiersFromTheStart) {
    setOption("ctrl:nocaps");
    watch();
    EXPECT_EQ(keys->modifiers().modifierOf(capsLock), Modifier::Control);
    EXPECT_EQ(keys->modifiers().modifierOf(leftControl), Modifier::Control);
    EXPECT_EQ(changes, 0);
}

TEST_F(X11SessionKeysWatchTest, tellsWhenTheyChange) {
    watch();
    EXPECT_EQ(keys->modifiers().modifierOf(capsLock), Modifier::CapsLock);
    setOption("ctrl:nocaps");
    EXPECT_TRUE(loop.runUntil(
        [this] { return keys->modifiers().modifierOf(capsLock) == Modifier::Control; }));
    EXPECT_GE(changes, 1);
}

TEST_F(X11SessionKeysWatchTest, keepsTheLastOnesWhenTheServerGoesAway) {
    setOption("ctrl:nocaps");
    watch();
    server->end();
    loop.drain();
    EXPECT_EQ(keys->modifiers().modifierOf(capsLock), Modifier::Control);
}

TEST_F(X11SessionKeysWatchTest, takesTheStandardOnesWhereNobodyTells) {
    server->end();
    watch();
    EXPECT_EQ(keys->modifiers(), ModifierTable::standard());
}

} // namespace

} // namespace pallistrom
