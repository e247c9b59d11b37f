// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "EventLoop.h"
#include "FakeBusService.h"
#include "FrontStage.h"
#include "LoopSleep.h"
#include "TestKeymap.h"
#include "platform/linux/keyboardservice/ServiceWords.h"

#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>

namespace pallistrom {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string editsInFront = "SetFrontApplication 0";
const std::string terminalInFront = "SetFrontApplication 1";

/// Everything that follows the session, and a service that writes down what it is told.
class QuietFront : public testing::Test {
protected:
    void SetUp() override {
        m_service.emplace(FakeBusService::Answers{});
        ASSERT_TRUE(m_loop.runUntil([this] { return m_service->isThere(); }));
        ASSERT_TRUE(m_loop.runUntil([this] { return !m_stage->service().obstacle(); }));
        ASSERT_TRUE(m_stage->start());
        ASSERT_TRUE(isTold(terminalInFront));
        ASSERT_TRUE(LoopSleep::isWithoutEnd());
        m_service->take();
    }

    // Waits until the service has been told this last.
    [[nodiscard]] bool isTold(const std::string& entry) {
        return m_loop.runUntil(
            [&] { return !m_service->asked().empty() && m_service->asked().back() == entry; });
    }

private:
    struct OwnLoop {
        OwnLoop() { Environment::set("QT_NO_GLIB", "1"); }
    };

    OwnLoop m_ownLoop;

protected:
    EventLoop m_loop;
    std::optional<FrontStage> m_stage{std::in_place};
    std::optional<FakeBusService> m_service;
};

TEST_F(QuietFront, sleepsUntilSomebodySpeaks) {
    EXPECT_TRUE(LoopSleep::isWithoutEnd());
    m_stage->bringToFront(m_stage->editor);
    ASSERT_TRUE(isTold(editsInFront));
    EXPECT_TRUE(LoopSleep::isWithoutEnd());
    // It would be seen.
    QTimer timer;
    timer.start(std::chrono::hours(1));
    EXPECT_FALSE(LoopSleep::isWithoutEnd());
}

TEST_F(QuietFront, tellsOnceOfAChangeOfKind) {
    // Rarely enough to be told without a wait.
    for (std::size_t i = 0; i < ServiceWords::mostFrontsASecond / 4; ++i) {
        m_stage->bringToFront(m_stage->editor);
        ASSERT_TRUE(isTold(editsInFront));
        ASSERT_TRUE(LoopSleep::isWithoutEnd());
        EXPECT_THAT(m_service->take(), ElementsAre(editsInFront));
        m_stage->bringToFront(m_stage->terminal);
        ASSERT_TRUE(isTold(terminalInFront));
        ASSERT_TRUE(LoopSleep::isWithoutEnd());
        EXPECT_THAT(m_service->take(), ElementsAre(terminalInFront));
    }
}

TEST_F(QuietFront, tellsNothingOfWhatChangesNoKind) {
    m_stage->bringToFront(m_stage->editor);
    ASSERT_TRUE(isTold(editsInFront));
    m_stage->compositor().setKeymap(keymapText("us", ""));
    ASSERT_TRUE(LoopSleep::isWithoutEnd());
    m_service->take();
    // Another of the same kind, windows that come and go behind it, one that says again what is
    // known, and a keymap with the same modifiers.
    m_stage->bringToFront(m_stage->otherEditor);
    m_stage->compositor().close(m_stage->compositor().open("alacritty"));
    m_stage->compositor().setActivated(m_stage->otherEditor, true);
    m_stage->compositor().setKeymap(keymapText("us(dvorak)", ""));
    ASSERT_TRUE(LoopSleep::isWithoutEnd());
    // All of it has come before this.
    m_stage->bringToFront(m_stage->terminal);
    ASSERT_TRUE(isTold(terminalInFront));
    EXPECT_THAT(m_service->take(), ElementsAre(terminalInFront));
    EXPECT_TRUE(LoopSleep::isWithoutEnd());
    EXPECT_THAT(m_service->take(), IsEmpty());
}

} // namespace

} // namespace pallistrom
