// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "CheckedDelivery.h"
#include "Environment.h"
#include "MadeUpInputs.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <iostream>
#include <random>
#include <string>

namespace pallistrom {

namespace {

constexpr std::size_t inputsOfOneDelivery = 250;

bool isEvent(const DeliveryInput& input) {
    return input.kind == DeliveryInput::Kind::Key;
}

/// Deliveries to which anything happens.
class RandomDeliveries {
public:
    explicit RandomDeliveries(std::uint64_t seed) : m_random(seed) {}

    /// Returns whether one more keeps its promises.
    testing::AssertionResult nextKeepsItsPromises() {
        MadeUpInputs inputs([this](std::size_t count) { return std::size_t{m_random() % count}; });
        CheckedScript script{.setup = inputs.setup(), .inputs = {}};
        CheckedDelivery delivery(script.setup);
        while (script.inputs.size() < inputsOfOneDelivery) {
            script.inputs.push_back(inputs.next(delivery));
            if (delivery.put(script.inputs.back())) {
                return testing::AssertionFailure() << script.shrunk().report();
            }
            m_events += isEvent(script.inputs.back()) ? 1U : 0U;
        }
        return testing::AssertionSuccess();
    }

    /// Returns how many key events there have been.
    [[nodiscard]] std::uint64_t events() const { return m_events; }

private:
    std::mt19937_64 m_random;
    std::uint64_t m_events = 0;
};

// PALLISTROM_RANDOM_EVENTS says how many key events at least, PALLISTROM_RANDOM_SEED which.
TEST(DeliveryRandom, keepsItsPromisesWhateverHappens) {
    const std::uint64_t wanted = Environment::number("PALLISTROM_RANDOM_EVENTS", 200'000);
    const std::uint64_t seed = Environment::number("PALLISTROM_RANDOM_SEED", 20'260'114);
    RandomDeliveries deliveries(seed);
    while (deliveries.events() < wanted) {
        ASSERT_TRUE(deliveries.nextKeepsItsPromises()) << "seed " << seed;
    }
    std::cout << deliveries.events() << " events, seed " << seed << '\n';
    RecordProperty("events", std::to_string(deliveries.events()));
    RecordProperty("seed", std::to_string(seed));
}

} // namespace

} // namespace pallistrom
