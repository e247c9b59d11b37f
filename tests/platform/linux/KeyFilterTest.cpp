// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/KeyFilter.h"

#include "platform/EventPosting.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace pallistrom {

namespace {

constexpr CGEventFlags control = kCGEventFlagMaskControl;
constexpr CGEvent pressOfW{.keyCode = 13, .flags = control, .isDown = true};

using Answer = std::function<CGEventRef(CGEventType type, CGEventRef event)>;

CGEventRef answered(CGEventTapProxy /*proxy*/, CGEventType type, CGEventRef event, void* userInfo) {
    return (*static_cast<Answer*>(userInfo))(type, event);
}

void post(std::uint16_t keyCode, CGEventFlags flags, bool isDown) {
    const OwnedCGEventSource source = CGEventSourceCreate(kCGEventSourceStateHIDSystemState);
    const OwnedCGEvent event = CGEventCreateKeyboardEvent(source.get(), keyCode, isDown);
    CGEventSetFlags(event.get(), flags);
    CGEventPost(kCGSessionEventTap, event.get());
}

class KeyFilterOf {
public:
    explicit KeyFilterOf(Answer answer) : m_answer(std::move(answer)) {}

    KeyFilter* operator->() { return &m_filter; }

private:
    Answer m_answer;
    KeyFilter m_filter{answered, &m_answer, {}};
};

TEST(KeyFilter, saysThatAnEventWhichComesBackAsItIsGoesOnUntouched) {
    KeyFilterOf filter([](auto /*type*/, CGEventRef event) { return event; });
    const KeyVerdict verdict = filter->ask(pressOfW);
    EXPECT_TRUE(verdict.isUntouched);
    EXPECT_TRUE(verdict.posted.empty());
}

TEST(KeyFilter, asksWithTheTypeOfTheEvent) {
    std::vector<CGEventType> types;
    KeyFilterOf filter([&](CGEventType type, CGEventRef event) {
        types.push_back(type);
        EXPECT_EQ(CGEventGetIntegerValueField(event, kCGKeyboardEventKeycode), 13);
        EXPECT_EQ(CGEventGetFlags(event), control);
        return event;
    });
    filter->ask(pressOfW);
    filter->ask({.keyCode = 13, .flags = control, .isDown = false});
    EXPECT_EQ(types, (std::vector{kCGEventKeyDown, kCGEventKeyUp}));
}

TEST(KeyFilter, givesTheRewrittenEvent) {
    KeyFilterOf filter([](auto /*type*/, CGEventRef event) {
        CGEventSetIntegerValueField(event, kCGKeyboardEventKeycode, 51);
        CGEventSetFlags(event, kCGEventFlagMaskAlternate);
        return event;
    });
    const KeyVerdict verdict = filter->ask(pressOfW);
    EXPECT_FALSE(verdict.isUntouched);
    ASSERT_TRUE(verdict.event);
    EXPECT_EQ(verdict.event->keyCode, 51);
    EXPECT_EQ(verdict.event->flags, kCGEventFlagMaskAlternate);
    EXPECT_TRUE(verdict.event->isDown);
}

TEST(KeyFilter, takesOtherFlagsAloneForARewrite) {
    KeyFilterOf filter([](auto /*type*/, CGEventRef event) {
        CGEventSetFlags(event, 0);
        return event;
    });
    EXPECT_FALSE(filter->ask(pressOfW).isUntouched);
}

TEST(KeyFilter, hasNoEventWhenItIsDropped) {
    KeyFilterOf filter([](auto /*type*/, auto /*event*/) { return nullptr; });
    const KeyVerdict verdict = filter->ask(pressOfW);
    EXPECT_FALSE(verdict.isUntouched);
    EXPECT_FALSE(verdict.event);
    EXPECT_TRUE(verdict.posted.empty());
}

TEST(KeyFilter, collectsWhatIsPostedInOrder) {
    KeyFilterOf filter([](auto /*type*/, auto /*event*/) {
        post(124, kCGEventFlagMaskShift, true);
        post(124, kCGEventFlagMaskShift, false);
        post(51, 0, true);
        return nullptr;
    });
    const KeyVerdict verdict = filter->ask(pressOfW);
    ASSERT_EQ(verdict.posted.size(), 3U);
    EXPECT_EQ(verdict.posted[0].keyCode, 124);
    EXPECT_EQ(verdict.posted[0].flags, kCGEventFlagMaskShift);
    EXPECT_TRUE(verdict.posted[0].isDown);
    EXPECT_EQ(verdict.posted[1].keyCode, 124);
    EXPECT_FALSE(verdict.posted[1].isDown);
    EXPECT_EQ(verdict.posted[2].keyCode, 51);
    EXPECT_EQ(verdict.posted[2].flags, 0U);
}

TEST(KeyFilter, doesNotCallAnEventUntouchedBesideWhichSomethingIsPosted) {
    KeyFilterOf filter([](auto /*type*/, CGEventRef event) {
        post(51, 0, true);
        return event;
    });
    const KeyVerdict verdict = filter->ask(pressOfW);
    EXPECT_FALSE(verdict.isUntouched);
    EXPECT_EQ(verdict.event->keyCode, 13);
    EXPECT_EQ(verdict.posted.size(), 1U);
}

TEST(KeyFilter, forgetsWhatWasPostedBefore) {
    bool posts = true;
    KeyFilterOf filter([&](auto /*type*/, CGEventRef event) {
        if (posts) {
            post(51, 0, true);
        }
        return event;
    });
    filter->ask(pressOfW);
    posts = false;
    EXPECT_TRUE(filter->ask(pressOfW).isUntouched);
}

TEST(KeyFilter, holdsAnyNumberOfPostedEvents) {
    KeyFilterOf filter([](auto /*type*/, auto /*event*/) {
        for (std::uint16_t keyCode = 0; keyCode < 100; ++keyCode) {
            post(keyCode, 0, true);
        }
        return nullptr;
    });
    const KeyVerdict verdict = filter->ask(pressOfW);
    ASSERT_EQ(verdict.posted.size(), 100U);
    EXPECT_EQ(verdict.posted.back().keyCode, 99);
}

TEST(KeyFilter, keepsACopyOfTheTappedKeys) {
    std::vector<TappedKey> keys{{.keyCode = 13, .required = control, .forbidden = 0}};
    const KeyFilter filter(answered, nullptr, keys);
    keys.clear();
    ASSERT_EQ(filter.tappedKeys().size(), 1U);
    EXPECT_EQ(filter.tappedKeys().front().keyCode, 13);
}

// --- Asking ahead.

constexpr TappedKey tappedW{.keyCode = 13, .required = control, .forbidden = 0};

TEST(KeyFilterAskedAhead, asksAboutAPressWithJustTheRequiredModifiers) {
    KeyFilterOf filter([](CGEventType type, CGEventRef event) {
        EXPECT_EQ(type, kCGEventKeyDown);
        EXPECT_EQ(CGEventGetIntegerValueField(event, kCGKeyboardEventKeycode), 13);
        EXPECT_EQ(CGEventGetFlags(event), control);
        return event;
    });
    EXPECT_FALSE(filter->wouldTouch(tappedW));
}

TEST(KeyFilterAskedAhead, wouldTouchWhatIsDropped) {
    KeyFilterOf filter([](auto /*type*/, auto /*event*/) { return nullptr; });
    EXPECT_TRUE(filter->wouldTouch(tappedW));
}

TEST(KeyFilterAskedAhead, throwsAwayWhatIsPosted) {
    bool posts = true;
    KeyFilterOf filter([&](auto /*type*/, CGEventRef event) {
        if (posts) {
            post(51, 0, true);
        }
        return event;
    });
    EXPECT_TRUE(filter->wouldTouch(tappedW));
    posts = false;
    EXPECT_TRUE(filter->ask(pressOfW).posted.empty());
}

// --- What cannot happen.

TEST(KeyFilterDeathTest, stopsTheProgramWhenAKeyIsPostedOutsideACallback) {
    EXPECT_DEATH(post(51, 0, true), "Pallistrom: a key was posted outside a tap's callback");
    KeyFilterOf filter([](auto /*type*/, CGEventRef event) { return event; });
    filter->ask(pressOfW);
    EXPECT_DEATH(post(51, 0, true), "Pallistrom: a key was posted outside a tap's callback");
}

TEST(KeyFilterDeathTest, stopsTheProgramWhenACallbackIsCalledFromWithinACallback) {
    KeyFilterOf inner([](auto /*type*/, CGEventRef event) { return event; });
    KeyFilterOf outer([&](auto /*type*/, CGEventRef event) {
        inner->ask(pressOfW);
        return event;
    });
    EXPECT_DEATH(outer->ask(pressOfW), "Pallistrom: a callback was called from within a callback");
}

TEST(KeyFilterDeathTest, stopsTheProgramWhenAnEventIsAskedForAnotherField) {
    const auto another = static_cast<CGEventField>(8);
    CGEvent event = pressOfW;
    EXPECT_DEATH(CGEventGetIntegerValueField(&event, another), "Pallistrom: an event has no such");
    EXPECT_DEATH(CGEventSetIntegerValueField(&event, another, 1),
                 "Pallistrom: an event has no such");
}

} // namespace

} // namespace pallistrom
