// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ScriptCase.h"
#include "expectOutput.h"

#include <gtest/gtest.h>

#include <cctype>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom {

namespace {

// The table of cases above KeyDelivery is read from there, so that it cannot say what is not true.
// Each case is a title and, further in, what goes in, an arrow, and what goes out.

constexpr std::string_view beginning = "// clang-format off";
constexpr std::string_view ending = "// clang-format on";
constexpr std::string_view heading = "// ---";
constexpr std::string_view titleMargin = "// ";
constexpr std::string_view scriptMargin = "//     ";
constexpr std::string_view arrow = "->";
constexpr std::string_view nothing = "(nothing)";
constexpr std::string_view tappedTitle = "Tapped:";

std::string nameFrom(std::string_view title) {
    std::string name;
    bool isNewWord = false;
    for (const char character : title) {
        if (std::isalnum(static_cast<unsigned char>(character)) == 0) {
            isNewWord = !name.empty();
        } else if (name.empty()) {
            name += static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
        } else {
            name += isNewWord
                        ? static_cast<char>(std::toupper(static_cast<unsigned char>(character)))
                        : character;
            isNewWord = false;
        }
    }
    return name;
}

struct TableCase {
    std::string title;
    std::string script; ///< with the arrow in it

    [[nodiscard]] ScriptCase split() const {
        const std::size_t at = script.find(arrow);
        if (at == std::string::npos || at == 0) {
            return {.name = nameFrom(title), .in = "", .out = ""};
        }
        const std::string out = script.substr(at + arrow.size() + 1);
        return {.name = nameFrom(title),
                .in = script.substr(0, at - 1),
                .out = out == nothing ? "" : out};
    }
};

// Adds the words of `line` with one space between them.
void addWords(const std::string& line, std::string& text) {
    std::istringstream words(line);
    for (std::string word; words >> word;) {
        text += text.empty() ? "" : " ";
        text += word;
    }
}

std::vector<TableCase> readTable() {
    std::ifstream header(KEY_DELIVERY_HEADER);
    std::vector<TableCase> cases;
    std::string line;
    while (std::getline(header, line) && line != beginning) {
    }
    while (std::getline(header, line) && line != ending) {
        if (line.starts_with(scriptMargin) && !cases.empty()) {
            addWords(line.substr(scriptMargin.size()), cases.back().script);
        } else if (line.starts_with(titleMargin) && !line.starts_with(heading)) {
            cases.push_back({.title = line.substr(titleMargin.size()), .script = ""});
        }
    }
    return cases;
}

std::vector<ScriptCase> table() {
    std::vector<ScriptCase> result;
    for (const TableCase& c : readTable()) {
        result.push_back(c.split());
    }
    return result;
}

class KeyDeliveryTable : public testing::TestWithParam<ScriptCase> {};

TEST_P(KeyDeliveryTable, isTrue) {
    ASSERT_FALSE(GetParam().in.empty()) << "there is no arrow behind what goes in";
    const bool isTapped = GetParam().name.starts_with(nameFrom(tappedTitle));
    expectDelivery(GetParam(),
                   isTapped ? KeyDelivery::Rewritten::Tapped : KeyDelivery::Rewritten::Held);
}

INSTANTIATE_TEST_SUITE_P(, KeyDeliveryTable, testing::ValuesIn(table()), nameOf);

TEST(KeyDeliveryTableTest, findsCases) {
    EXPECT_FALSE(table().empty());
}

} // namespace

} // namespace pallistrom
