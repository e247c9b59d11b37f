// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Field.h"
#include "HeldKeys.h"
#include "Keys.h"
#include "Pallistrom.h"
#include "Tools.h"
#include "VirtualDisplay.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace pallistrom::e2e {

namespace {

/// Waits for `expected` for as long as the text becomes shorter, however slowly the field takes so
/// many keys. Returns the last state.
TextState waitWhileShrinking(Field& field, const TextState& start, const TextState& expected) {
    TextState before;
    TextState last = start;
    do {
        before = last;
        last = field.waitFor([&](const TextState& state) {
            return state == expected || state.text.size() < before.text.size();
        });
    } while (last != expected && last != before);
    return last;
}

constexpr int words = 100;

/// So many words to the left of the cursor, and so many to the right.
TextState manyWords() {
    std::string left;
    std::string right;
    for (int i = 0; i < words; ++i) {
        left += "left ";
        right += "right ";
    }
    return {.text = left + right, .cursor = static_cast<int>(left.size())};
}

std::size_t count(const std::string& word, const TextState& state) {
    std::size_t found = 0;
    for (auto at = state.text.find(word); at != std::string::npos;
         at = state.text.find(word, at + 1)) {
        ++found;
    }
    return found;
}

struct Situation {
    Situation(Keyboard keyboard, const std::string& fieldProgram, const std::string& milliseconds)
        : display{{"-arinterval", milliseconds}},
          program{display.name()},
          field{fieldProgram, display.name()},
          keys{display.name(), keyboard} {}

    VirtualDisplay display;
    Pallistrom program;
    Field field;
    Keys keys;
};

/// A shortcut that is held while the server repeats its key so fast that an answer to one repeat
/// often meets the next.
class RushedRepeats : public testing::TestWithParam<Keyboard> {
protected:
    void TearDown() override {
        if (m_situation) {
            const XConnection connection{m_situation->display.name()};
            EXPECT_TRUE(waitUntil([&] { return heldKeys(connection).empty(); }));
        }
    }

    /// Skips the test if something is lacking.
    void begin(const std::string& milliseconds) {
        const std::string fieldProgram = std::string{FIELD_FOLDER} + "/field-qt6";
        const std::string missing =
            missingPrograms({"Xvfb", "openbox", "xdotool", fieldProgram, Pallistrom::path()});
        if (!missing.empty()) {
            GTEST_SKIP() << missing;
        }
        m_situation.emplace(GetParam(), fieldProgram, milliseconds);
        EXPECT_EQ(program().switchOnOnly({"ctrlW", "altD"}), std::vector<std::string>{});
        field().set(manyWords());
    }

    Pallistrom& program() { return m_situation->program; }

    Field& field() { return m_situation->field; }

    void play(const std::string& script) { m_situation->keys.play(script); }

private:
    std::optional<Situation> m_situation;
};

TEST_P(RushedRepeats, takeOneWordEachAndDoNotEnd) {
    begin("20");
    if (IsSkipped()) {
        return;
    }
    TextState expected = manyWords();
    play("+ctrl +w");
    expected.text.erase(0, static_cast<std::size_t>(expected.cursor));
    expected.cursor = 0;
    EXPECT_EQ(waitWhileShrinking(field(), manyWords(), expected), expected);
    play("-w -ctrl +alt +d");
    EXPECT_EQ(waitWhileShrinking(field(), expected, {}), TextState{});
    play("-d -alt");
}

TEST_P(RushedRepeats, endWhenTheirKeyIsReleasedEvenIfTheProgramComesLate) {
    begin("20");
    if (IsSkipped()) {
        return;
    }
    play("+ctrl +w");
    const auto isRepeated = [](const TextState& state) {
        return count("left", state) < words - 1;
    };
    EXPECT_PRED1(isRepeated, field().waitFor(isRepeated));
    program().signal(SIGSTOP);
    play("-w -ctrl");
    // Whatever was sent before has arrived when this has.
    play("+z -z");
    const TextState stopped = field().waitFor(
        [](const TextState& state) { return state.text.find('z') != std::string::npos; });

    program().signal(SIGCONT);
    // The program gets to this last, and then has got to the repeats. One of them it may have been
    // at when it was stopped; that takes the letter.
    play("+alt +d -d -alt");
    const TextState end =
        field().waitFor([](const TextState& state) { return count("right", state) < words; });
    EXPECT_EQ(count("right", end), words - 1);
    EXPECT_EQ(count("left", end), count("left", stopped));
}

INSTANTIATE_TEST_SUITE_P(HeldKeyboard, RushedRepeats, testing::Values(Keyboard::Device));
INSTANTIATE_TEST_SUITE_P(HeldFakedKeys, RushedRepeats, testing::Values(Keyboard::Faked));

} // namespace

} // namespace pallistrom::e2e
