// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keyboardservice/ServiceTap.h"

#include "EventLoop.h"
#include "FakeKeyboardService.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <memory>
#include <set>
#include <utility>

namespace pallistrom {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr EvdevCode capsLock = 58;

struct FakeFront final : public FrontWatch {
    explicit FakeFront(std::optional<FrontApplication>& source) : value(source) {}

    [[nodiscard]] std::optional<FrontApplication> application() const override { return value; }

    std::optional<FrontApplication>& value;
};

struct FakeKeys final : public SessionKeysWatch {
    explicit FakeKeys(ModifierTable& source) : value(source) {}

    [[nodiscard]] const ModifierTable& modifiers() const override { return value; }

    ModifierTable& value;
};

// Those keys whose switch is on.
std::set<std::int64_t> switchedOn;

CGEventRef
dropSwitchedOn(CGEventTapProxy /*proxy*/, CGEventType /*type*/, CGEventRef event, void* /*info*/) {
    return switchedOn.contains(CGEventGetIntegerValueField(event, kCGKeyboardEventKeycode))
               ? nullptr
               : event;
}

class ServiceTapTest : public testing::Test {
protected:
    ServiceTapTest() { switchedOn = {13, 40}; }

    // The tap runs, and what it said for that is gone.
    void start() {
        service.say(std::nullopt);
        ASSERT_TRUE(tap.start(filter));
        service.take();
    }

    EventLoop loop;
    FakeKeyboardService service;
    std::optional<FrontApplication> front;
    ModifierTable modifiers = ModifierTable::standard();
    std::function<void()> tellFront;
    std::function<void()> tellKeys;
    int watches = 0; ///< made so far
    ServiceTap tap{service,
                   {.watchFront =
                        [this](std::function<void()> tell) {
                            tellFront = std::move(tell);
                            ++watches;
                            return std::make_unique<FakeFront>(front);
                        },
                    .watchKeys =
                        [this](std::function<void()> tell) {
                            tellKeys = std::move(tell);
                            ++watches;
                            return std::make_unique<FakeKeys>(modifiers);
                        }}};
    std::array<TappedKey, 3> keys{{{.keyCode = 13}, {.keyCode = 32}, {.keyCode = 40}}};
    KeyFilter filter{dropSwitchedOn, nullptr, keys};
};

TEST_F(ServiceTapTest, runsOnlyWithTheGrant) {
    EXPECT_EQ(tap.obstacle(), Obstacle::NotGranted);
    EXPECT_FALSE(tap.start(filter));
    EXPECT_FALSE(tap.isRunning());
    EXPECT_THAT(service.take(), IsEmpty());
    EXPECT_EQ(watches, 0);

    service.say(std::nullopt);
    EXPECT_EQ(tap.obstacle(), std::nullopt);
    EXPECT_TRUE(tap.start(filter));
    EXPECT_TRUE(tap.isRunning());
}

TEST_F(ServiceTapTest, tellsEverythingBeforeItIsOn) {
    service.say(std::nullopt);
    ASSERT_TRUE(tap.start(filter));
    EXPECT_THAT(service.take(),
                ElementsAre("switches 5", "control is key 29", "front 0", "tap on"));
}

TEST_F(ServiceTapTest, needsNobodyToServeIt) {
    start();
    EXPECT_EQ(tap.descriptor(), std::nullopt);
}

TEST_F(ServiceTapTest, tellsEachChangeAndNothingElse) {
    start();
    switchedOn = {32};
    tap.filterChanged();
    EXPECT_THAT(service.take(), ElementsAre("switches 2"));

    front = FrontApplication::KeepsItsKeys;
    tellFront();
    EXPECT_THAT(service.take(), ElementsAre("front 1"));

    modifiers.set(capsLock, Modifier::Control);
    modifiers.set(29, Modifier::None);
    tellKeys();
    EXPECT_THAT(service.take(), ElementsAre("control is key 58"));

    tap.filterChanged();
    tellFront();
    tellKeys();
    EXPECT_THAT(service.take(), IsEmpty());
}

TEST_F(ServiceTapTest, takesAnUnknownApplicationForOneThatTakesEditingKeys) {
    front = FrontApplication::EditsBySelection;
    start();
    front.reset();
    tellFront();
    EXPECT_THAT(service.take(), ElementsAre("front 0"));
}

TEST_F(ServiceTapTest, saysGoodbyeWhenItStops) {
    start();
    tap.stop();
    EXPECT_FALSE(tap.isRunning());
    EXPECT_THAT(service.take(), ElementsAre("tap off"));
    tap.stop();
    tap.filterChanged();
    service.say(Obstacle::ServiceSilent);
    service.say(std::nullopt);
    EXPECT_THAT(service.take(), IsEmpty());
}

TEST_F(ServiceTapTest, isNotRunningOnceTheGrantIsWithdrawn) {
    start();
    service.say(Obstacle::NotGranted);
    EXPECT_FALSE(tap.isRunning());
    EXPECT_EQ(tap.obstacle(), Obstacle::NotGranted);
    switchedOn = {};
    tap.filterChanged();
    tellFront();
    EXPECT_THAT(service.take(), IsEmpty());
}

TEST_F(ServiceTapTest, tellsAServiceThatComesBackEverythingAtOnce) {
    start();
    service.say(Obstacle::ServiceSilent);
    EXPECT_FALSE(tap.isRunning());
    front = FrontApplication::KeepsItsKeys;
    service.say(std::nullopt);
    EXPECT_TRUE(tap.isRunning());
    EXPECT_THAT(service.take(),
                ElementsAre("switches 5", "control is key 29", "front 1", "tap on"));
}

TEST_F(ServiceTapTest, tellsEverythingAnewWhenItStartsAgain) {
    start();
    tap.stop();
    service.take();
    ASSERT_TRUE(tap.start(filter));
    EXPECT_THAT(service.take(),
                ElementsAre("switches 5", "control is key 29", "front 0", "tap on"));
}

TEST_F(ServiceTapTest, saysNothingWhenTheServiceSaysTheSameAgain) {
    start();
    service.say(std::nullopt);
    EXPECT_THAT(service.take(), IsEmpty());
}

} // namespace

} // namespace pallistrom
