// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Environment.h"
#include "MadeUpDays.h"
#include "RecordedLog.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <iostream>
#include <random>
#include <string>

namespace pallistrom {

namespace {

constexpr int happeningsOfADay = 400;

// Returns whether everything is in order on a day of its own, and adds the events that it had.
testing::AssertionResult isInOrder(std::uint64_t seed, std::uint64_t& events) {
    std::mt19937_64 random(seed);
    MadeUpDays day([&random](std::size_t count) { return std::size_t{random() % count}; });
    Complaint complaint;
    for (int count = 0; count < happeningsOfADay && !complaint; ++count) {
        complaint = day.next();
    }
    if (!complaint) {
        complaint = day.end();
    }
    events += day.events();
    RecordedLog::take();
    return complaint ? testing::AssertionFailure() << *complaint : testing::AssertionSuccess();
}

// PALLISTROM_RANDOM_EVENTS says how many events of keyboards at least, PALLISTROM_RANDOM_SEED
// which: the seed that a failure tells makes the same day the first.
TEST(KeyboardsRandom, keepTheirPromisesWhateverHappens) {
    const std::uint64_t wanted = Environment::number("PALLISTROM_RANDOM_EVENTS", 200'000);
    std::uint64_t seed = Environment::number("PALLISTROM_RANDOM_SEED", 20'260'114);
    std::uint64_t events = 0;
    for (; events < wanted; ++seed) {
        ASSERT_TRUE(isInOrder(seed, events)) << "seed " << seed;
    }
    std::cout << events << " events, up to seed " << seed << '\n';
    RecordProperty("events", std::to_string(events));
}

} // namespace

} // namespace pallistrom
