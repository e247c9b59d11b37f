// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/SettingsText.h"

#include "SettingsTextPromises.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>

namespace pallistrom {

namespace {

using namespace std::string_literals;
using SettingsText::parse;
using SettingsText::Values;
using SettingsText::withChanges;

// --- What is read.

TEST(SettingsText, isTheHeaderAndALineForEachSetting) {
    EXPECT_EQ(SettingsText::make({{"shortcut.ctrlW.enabled", false}, {"another", true}}),
              "[General]\nanother=true\nshortcut.ctrlW.enabled=false\n");
}

TEST(SettingsText, ofNothingIsUndamagedAndEmpty) {
    EXPECT_TRUE(parse("").values.empty());
    EXPECT_FALSE(parse("").isDamaged);
    EXPECT_EQ(SettingsText::make({}), "[General]\n");
}

TEST(SettingsText, needsNoHeader) {
    EXPECT_EQ(parse("a=true\n").values, (Values{{"a", true}}));
    EXPECT_FALSE(parse("a=true\n").isDamaged);
}

TEST(SettingsText, needsNoLineFeedAtItsEnd) {
    EXPECT_EQ(parse("[General]\na=true").values, (Values{{"a", true}}));
}

TEST(SettingsText, letsTheLaterLineWin) {
    EXPECT_EQ(parse("a=true\nb=true\na=false\n").values, (Values{{"a", false}, {"b", true}}));
}

TEST(SettingsText, mayHaveBlanksAroundEachPart) {
    const auto settings = parse("  [General]\t\n \t\n\t a \t=  on \n   # remark\n");
    EXPECT_EQ(settings.values, (Values{{"a", true}}));
    EXPECT_FALSE(settings.isDamaged);
}

TEST(SettingsText, mayHaveTheLineEndsOfWindows) {
    const auto settings = parse("[General]\r\n\r\n# remark\r\na=true\r\nb=false\r\n");
    EXPECT_EQ(settings.values, (Values{{"a", true}, {"b", false}}));
    EXPECT_FALSE(settings.isDamaged);
}

struct Spelling {
    std::string text;
    bool value;
};

void PrintTo(const Spelling& spelling, std::ostream* out) {
    *out << spelling.text;
}

class BooleanSpelling : public testing::TestWithParam<Spelling> {};

TEST_P(BooleanSpelling, isRead) {
    const auto settings = parse("key=" + GetParam().text);
    EXPECT_EQ(settings.values, (Values{{"key", GetParam().value}}));
    EXPECT_FALSE(settings.isDamaged);
}

INSTANTIATE_TEST_SUITE_P(,
                         BooleanSpelling,
                         testing::Values(Spelling{"true", true},
                                         Spelling{"yes", true},
                                         Spelling{"on", true},
                                         Spelling{"1", true},
                                         Spelling{"True", true},
                                         Spelling{"YES", true},
                                         Spelling{"oN", true},
                                         Spelling{"false", false},
                                         Spelling{"no", false},
                                         Spelling{"off", false},
                                         Spelling{"0", false},
                                         Spelling{"FALSE", false},
                                         Spelling{"No", false},
                                         Spelling{"Off", false}));

// --- Damage.

struct Damage {
    std::string name;
    std::string line;
};

void PrintTo(const Damage& damage, std::ostream* out) {
    *out << damage.name;
}

class DamagedLine : public testing::TestWithParam<Damage> {};

TEST_P(DamagedLine, isNotedAndDoesNotHideTheOthers) {
    const auto settings = parse("a=true\n" + GetParam().line + "\nb=false\n");
    EXPECT_EQ(settings.values, (Values{{"a", true}, {"b", false}}));
    EXPECT_TRUE(settings.isDamaged);
}

INSTANTIATE_TEST_SUITE_P(,
                         DamagedLine,
                         testing::Values(Damage{"noEquals", "shortcut.ctrlW.enab"},
                                         Damage{"noValue", "c="},
                                         Damage{"number", "c=2"},
                                         Damage{"longerThanTrue", "c=trueish"},
                                         Damage{"startOfTrue", "c=tru"},
                                         Damage{"twoEquals", "c=d=true"},
                                         Damage{"blankInKey", "c d=true"},
                                         Damage{"bareUtf8", "\xE2\x88\x82=true"},
                                         Damage{"percentAlone", "%=true"},
                                         Damage{"halfACode", "%4=true"},
                                         Damage{"noCode", "%G0=true"},
                                         Damage{"signedCode", "%-1=true"},
                                         Damage{"codeAtTheEnd", "c%4"},
                                         Damage{"anotherSection", "[Window]"},
                                         Damage{"nul", "\0"s},
                                         Damage{"nulInKey", "c\0d=true"s},
                                         Damage{"nulInValue", "c=true\0"s},
                                         Damage{"binary",
                                                "\x7F"
                                                "ELF\x02\x01\x01"}),
                         [](const auto& tested) { return tested.param.name; });

// --- Keys.

struct OddKey {
    std::string name;
    std::string key;
    std::string line;
};

void PrintTo(const OddKey& key, std::ostream* out) {
    *out << key.name;
}

class KeyOfASetting : public testing::TestWithParam<OddKey> {};

TEST_P(KeyOfASetting, isWrittenPlainlyAndReadAgain) {
    const auto& [name, key, line] = GetParam();
    const std::string text = SettingsText::make({{key, true}});
    EXPECT_EQ(text, "[General]\n" + line + "\n");
    EXPECT_EQ(parse(text).values, (Values{{key, true}}));
    EXPECT_FALSE(parse(text).isDamaged);
}

INSTANTIATE_TEST_SUITE_P(
    ,
    KeyOfASetting,
    testing::Values(OddKey{"plain", "shortcut.ctrlW.enabled", "shortcut.ctrlW.enabled=true"},
                    OddKey{"emptyId", "shortcut..enabled", "shortcut..enabled=true"},
                    OddKey{"empty", "", "=true"},
                    OddKey{"dashAndUnderscore", "-_", "-_=true"},
                    OddKey{"equals", "a=b", "a%3Db=true"},
                    OddKey{"lineFeed", "a\nb", "a%0Ab=true"},
                    OddKey{"carriageReturn", "a\r", "a%0D=true"},
                    OddKey{"nul", "a\0b"s, "a%00b=true"},
                    OddKey{"percent", "100%", "100%25=true"},
                    OddKey{"blank", " a ", "%20a%20=true"},
                    OddKey{"remark", "#a", "%23a=true"},
                    OddKey{"otherRemark", ";a", "%3Ba=true"},
                    OddKey{"header", "[General]", "%5BGeneral%5D=true"},
                    OddKey{"utf8", "\xE2\x88\x82", "%E2%88%82=true"},
                    OddKey{"noUtf8", "\xFF", "%FF=true"}),
    [](const auto& tested) { return tested.param.name; });

TEST(SettingsText, mayWriteCodesInSmallLettersAndForAnyCharacter) {
    EXPECT_EQ(parse("%c3%a9%41=true").values,
              (Values{{"\xC3\xA9"
                       "A",
                       true}}));
}

// --- Changes.

TEST(SettingsTextChange, takesTheFirstPlaceOfItsKeyAndRemovesTheOthers) {
    EXPECT_EQ(withChanges("[General]\na=1\nb=0\na=0\nc=1\n", {{"a", false}}),
              "[General]\na=false\nb=0\nc=1\n");
}

TEST(SettingsTextChange, findsItsKeyHoweverThatIsWritten) {
    EXPECT_EQ(withChanges("[General]\n %61 = YES\n", {{"a", false}}), "[General]\na=false\n");
}

TEST(SettingsTextChange, goesToTheEndIfItsKeyIsNew) {
    EXPECT_EQ(withChanges("[General]\nz=true\n", {{"b", true}, {"a", false}}),
              "[General]\nz=true\na=false\nb=true\n");
}

TEST(SettingsTextChange, leavesAllOtherLinesAsTheyAre) {
    EXPECT_EQ(
        withChanges("; mine\n\n[General]\r\n  # why\r\n a = ON \n\nb=true\n# end", {{"b", false}}),
        "; mine\n\n[General]\r\n  # why\r\n a = ON \n\nb=false\n# end\n");
}

TEST(SettingsTextChange, endsTheLastLineBeforeItAddsAnother) {
    EXPECT_EQ(withChanges("[General]\na=true", {{"b", true}}), "[General]\na=true\nb=true\n");
}

TEST(SettingsTextChange, addsAHeaderOnlyWhereThereIsNone) {
    EXPECT_EQ(withChanges("", {{"a", true}}), "[General]\na=true\n");
    EXPECT_EQ(withChanges("# mine\na=true\n", {{"a", false}}), "[General]\n# mine\na=false\n");
    EXPECT_EQ(withChanges("a=true\n[General]\n", {{"a", false}}), "a=false\n[General]\n");
}

TEST(SettingsTextChange, ofNothingChangesNothing) {
    EXPECT_EQ(withChanges("[General]\na=1\na=0\n", {}), "[General]\na=1\na=0\n");
}

// --- Whatever the text.

class RandomSettings {
public:
    std::string text() {
        constexpr std::array breaks{"\n", "\n", "\n", "\r\n", "\n\n", ""};
        std::string result;
        for (int i = number(8); i > 0; --i) {
            result += line() + breaks.at(index(breaks));
        }
        return result;
    }

    Values changes() {
        Values result;
        for (int i = number(4); i > 0; --i) {
            result.insert_or_assign(key(), number(2) == 1);
        }
        return result;
    }

private:
    int number(int below) { return std::uniform_int_distribution<>(0, below - 1)(m_random); }

    template<typename List>
    std::size_t index(const List& list) {
        return static_cast<std::size_t>(number(static_cast<int>(list.size())));
    }

    // Few, so that they meet.
    std::string key() {
        static const std::array keys{
            ""s, "a"s, "b"s, "shortcut.x.enabled"s, "=\n"s, "\0"s, "#"s, "\xC3\xA9"s};
        return keys.at(index(keys));
    }

    std::string line() {
        static const std::array words{"true", "off", "YES", "0", "maybe", " on\t", ""};
        static const std::array others{
            "[General]"s, "# remark"s, ";"s, ""s, " \t"s, "[Other]"s, "a"s, "%4"s, "\0\1"s};
        switch (number(4)) {
        case 0:
            return others.at(index(others));
        case 1:
            return noise();
        default: {
            // As it is written for us, but with a value of its own.
            const std::string text = SettingsText::make({{key(), true}});
            const auto start = text.find('\n') + 1;
            return text.substr(start, text.rfind('=') + 1 - start) + words.at(index(words));
        }
        }
    }

    std::string noise() {
        static const std::array letters{
            'a', '=', '%', '\n', '\r', '\0', '#', '[', '0', '\xC3', ' '};
        std::string result;
        for (int i = number(12); i > 0; --i) {
            result += letters.at(index(letters));
        }
        return result;
    }

    std::mt19937 m_random{20260101}; // NOLINT(cert-msc51-cpp): the same each time, on purpose
};

TEST(SettingsText, keepsItsPromisesForRandomTextsAndChanges) {
    RandomSettings random;
    for (int i = 0; i < 20000; ++i) {
        const std::string text = random.text();
        const Values changes = random.changes();
        ASSERT_EQ(SettingsText::brokenPromise(text, changes), "")
            << testing::PrintToString(text) << " with " << testing::PrintToString(changes);
    }
}

} // namespace

} // namespace pallistrom
