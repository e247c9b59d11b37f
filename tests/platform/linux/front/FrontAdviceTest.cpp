// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/FrontAdvice.h"

#include <gtest/gtest.h>

#include <set>
#include <string_view>

namespace pallistrom {

namespace {

using State = GnomeExtension::State;

constexpr State states[] = {
    State::NoShell, State::Missing, State::SwitchedOff, State::SwitchedOn, State::Broken};

QVariantMap described(double state) {
    return {{QStringLiteral("state"), state}};
}

TEST(FrontAdvice, saysWhatIsAmissAndOffersTheExtensionOnlyWhereItHelps) {
    for (const State state : states) {
        const FrontAdvice advice = FrontAdvice::about(state);
        EXPECT_EQ(advice.text.find("Terminals cannot be told apart here"), 0U);
        EXPECT_EQ(advice.text.back(), '.');
        EXPECT_EQ(advice.offersTheExtension, state == State::SwitchedOff);
    }
}

TEST(FrontAdvice, differsByWhatWouldHelp) {
    std::set<std::string_view> texts;
    for (const State state : {State::NoShell, State::Missing, State::SwitchedOff, State::Broken}) {
        texts.insert(FrontAdvice::about(state).text);
    }
    EXPECT_EQ(texts.size(), 4U);
}

TEST(GnomeExtension, isInTheStateThatTheShellDescribes) {
    EXPECT_EQ(GnomeExtension::stateIn({}), State::Missing);
    EXPECT_EQ(GnomeExtension::stateIn(described(1)), State::SwitchedOn);
    EXPECT_EQ(GnomeExtension::stateIn(described(2)), State::SwitchedOff);
    EXPECT_EQ(GnomeExtension::stateIn(described(3)), State::Broken);
    EXPECT_EQ(GnomeExtension::stateIn(described(4)), State::Missing);
    EXPECT_EQ(GnomeExtension::stateIn(described(6)), State::SwitchedOff);
    EXPECT_EQ(GnomeExtension::stateIn(described(99)), State::Missing);
    EXPECT_EQ(GnomeExtension::stateIn({{QStringLiteral("state"), QStringLiteral("x")}}),
              State::Missing);
}

} // namespace

} // namespace pallistrom
