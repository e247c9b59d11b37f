// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/SessionFrontWatch.h"

#include "TerminalByName.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>

namespace pallistrom {

namespace {

const FrontReport terminal = FrontReport::of({.instance = "", .name = "terminal"});
const FrontReport editor = FrontReport::of({.instance = "", .name = "editor"});

/// Says what it is told to.
class FakeSource final : public FrontSource {
public:
    explicit FakeSource(std::function<void()> whenChanged)
        : m_whenChanged(std::move(whenChanged)) {}

    [[nodiscard]] FrontReport report() const override { return m_report; }

    void setWanted(Wanted wanted) override { isWanted = wanted == Wanted::Yes; }

    void say(const FrontReport& report) {
        m_report = report;
        m_whenChanged();
    }

    bool isWanted = false;

private:
    std::function<void()> m_whenChanged;
    FrontReport m_report;
};

class SessionFrontWatchTest : public testing::Test {
protected:
    SessionFrontWatchTest() : first(add()), second(add()) {}

    FakeSource& add() {
        FakeSource* added = nullptr;
        watch.addSource([&added](auto changed) {
            auto source = std::make_unique<FakeSource>(std::move(changed));
            added = source.get();
            return source;
        });
        return *added;
    }

    int changes = 0;
    SessionFrontWatch watch{terminalByName, [this] {
                                ++changes;
                            }};
    FakeSource& first;
    FakeSource& second;
};

TEST_F(SessionFrontWatchTest, believesTheFirstSourceThatCanTell) {
    EXPECT_FALSE(watch.isKnown());
    second.say(editor);
    EXPECT_EQ(watch.application(), FrontApplication::TakesEditingKeys);
    first.say(terminal);
    EXPECT_EQ(watch.application(), FrontApplication::KeepsItsKeys);
    first.say(FrontReport::unknown());
    EXPECT_EQ(watch.application(), FrontApplication::TakesEditingKeys);
    EXPECT_TRUE(watch.isKnown());
}

TEST_F(SessionFrontWatchTest, wantsNoSourceAfterThatOne) {
    EXPECT_TRUE(first.isWanted);
    EXPECT_TRUE(second.isWanted);
    first.say(FrontReport::nobody());
    EXPECT_TRUE(first.isWanted);
    EXPECT_FALSE(second.isWanted);
    first.say(FrontReport::unknown());
    EXPECT_TRUE(second.isWanted);
}

TEST_F(SessionFrontWatchTest, tellsOfAChangeAndOfNothingElse) {
    first.say(terminal);
    EXPECT_EQ(changes, 1);
    first.say(terminal);
    first.say(FrontReport::nobody());
    second.say(editor);
    EXPECT_EQ(changes, 1);
    first.say(editor);
    EXPECT_EQ(changes, 2);
}

} // namespace

} // namespace pallistrom
