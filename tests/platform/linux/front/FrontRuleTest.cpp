// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/FrontRule.h"

#include "TerminalByName.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <string_view>

namespace pallistrom {

namespace {

/// Reports, one letter each: t a terminal, e an editor, w a terminal within an editor, n nobody, u
/// unknown. What application() is at the end: t keeps its keys, e takes editing keys, u nothing.
struct RuleCase {
    const char* name;
    std::string_view reports;
    char result;

    friend void PrintTo(const RuleCase& rule, std::ostream* stream) { *stream << rule.name; }
};

FrontReport reportOf(char letter) {
    switch (letter) {
    case 't':
        return FrontReport::of({.instance = "", .name = "terminal"});
    case 'e':
        return FrontReport::of({.instance = "", .name = "editor"});
    case 'w':
        return {.kind = FrontReport::Kind::Window,
                .window = {.instance = "", .name = "editor"},
                .isInTerminal = true};
    case 'n':
        return FrontReport::nobody();
    default:
        return FrontReport::unknown();
    }
}

char letterOf(std::optional<FrontApplication> application) {
    if (!application) {
        return 'u';
    }
    return application == FrontApplication::KeepsItsKeys ? 't' : 'e';
}

class FrontRuleTable : public testing::TestWithParam<RuleCase> {};

TEST_P(FrontRuleTable, holds) {
    FrontRule rule(terminalByName);
    for (const char letter : GetParam().reports) {
        rule.take(reportOf(letter));
    }
    EXPECT_EQ(letterOf(rule.application()), GetParam().result);
}

constexpr RuleCase cases[] = {
    {"knowsNothingAtFirst", "", 'u'},
    {"knowsATerminal", "t", 't'},
    {"knowsAnEditor", "e", 'e'},
    {"followsEachChange", "tetete", 'e'},
    {"takesAnEmptyDesktopForNoTerminal", "n", 'e'},
    {"keepsATerminalInAGap", "tn", 't'},
    {"keepsAnEditorInAGap", "en", 'e'},
    {"keepsATerminalInALongGap", "etnnn", 't'},
    {"followsTheWindowAfterAGap", "tne", 'e'},
    {"knowsNothingOnceTheSourceFails", "eu", 'u'},
    {"keepsATerminalWhenTheSourceFails", "tu", 't'},
    {"keepsATerminalWhenTheSourceFailsInAGap", "tnu", 't'},
    {"forgetsATerminalThatWasNotTheLast", "teu", 'u'},
    {"keepsATerminalUntilTheNextWindow", "tuue", 'e'},
    {"keepsATerminalWhenASourceComesBackToAGap", "tun", 't'},
    {"takesTheGapAfterAFailureForTheLastWindow", "eun", 'e'},
    {"knowsAnEditorThatFailedAgain", "tueu", 'u'},
    {"knowsATerminalWithinAnEditor", "ew", 't'},
    {"knowsWhenTheKeyboardLeavesIt", "we", 'e'},
    {"keepsATerminalWithinAnEditorInAGap", "wn", 't'},
    {"keepsATerminalWithinAnEditorWhenTheSourceFails", "wu", 't'},
};

INSTANTIATE_TEST_SUITE_P(, FrontRuleTable, testing::ValuesIn(cases), [](const auto& rule) {
    return std::string(rule.param.name);
});

TEST(FrontRule, passesEachKindOfApplicationOn) {
    FrontRule rule([](const WindowClass&) { return FrontApplication::EditsBySelection; });
    rule.take(reportOf('e'));
    EXPECT_EQ(rule.application(), FrontApplication::EditsBySelection);
    rule.take(FrontReport::nobody());
    EXPECT_EQ(rule.application(), FrontApplication::EditsBySelection);
    rule.take(FrontReport::unknown());
    EXPECT_EQ(rule.application(), std::nullopt);
}

} // namespace

} // namespace pallistrom
