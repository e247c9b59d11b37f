// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/ExecLine.h"

#include "platform/linux/applications/DesktopEntryLines.h"

#include <utility>

namespace pallistrom::ExecLine {

namespace {

// What stands for something else within double quotes.
constexpr std::string_view needsBackslash = "\"`$\\";

class WordReader {
public:
    explicit WordReader(std::string_view command) : m_rest(command) {}

    std::optional<std::vector<std::string>> readAll() {
        while (!m_rest.empty()) {
            const char c = next();
            if (c == '"' || c == '\'') {
                if (!readQuoted(c)) {
                    return std::nullopt;
                }
            } else if (c == ' ' || c == '\t' || c == '\n') {
                finishWord();
            } else {
                add(c == '\\' && !m_rest.empty() ? next() : c);
            }
        }
        finishWord();
        return std::move(m_words);
    }

private:
    char next() {
        const char c = m_rest.front();
        m_rest.remove_prefix(1);
        return c;
    }

    void add(char c) { m_word = m_word.value_or(std::string()) + c; }

    void finishWord() {
        if (m_word) {
            m_words.push_back(*std::exchange(m_word, std::nullopt));
        }
    }

    // Returns whether the quote is closed.
    bool readQuoted(char quote) {
        m_word = m_word.value_or(std::string());
        while (!m_rest.empty()) {
            const char c = next();
            if (c == quote) {
                return true;
            }
            const bool isEscape = quote == '"' && c == '\\' && !m_rest.empty() &&
                                  needsBackslash.find(m_rest.front()) != std::string_view::npos;
            add(isEscape ? next() : c);
        }
        return false;
    }

    std::string_view m_rest;
    std::optional<std::string> m_word; ///< the one being read
    std::vector<std::string> m_words;
};

// A per cent sign stands twice, since it begins a field code.
std::string withoutDoubledPercent(const std::string& word) {
    std::string result;
    for (std::size_t i = 0; i < word.size(); ++i) {
        result += word[i];
        i += word.compare(i, 2, "%%") == 0 ? 1U : 0U;
    }
    return result;
}

} // namespace

std::optional<std::vector<std::string>> words(std::string_view value) {
    const std::string command = DesktopEntryLines::unescaped(value);
    auto words = WordReader(command).readAll();
    if (words) {
        for (std::string& word : *words) {
            word = withoutDoubledPercent(word);
        }
    }
    return words;
}

std::string starting(std::string_view program) {
    constexpr std::string_view needsNoQuotes =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/._-+";
    if (program.find_first_not_of(needsNoQuotes) == std::string_view::npos) {
        return std::string(program);
    }
    std::string word;
    for (const char c : program) {
        if (needsBackslash.find(c) != std::string_view::npos) {
            word += '\\';
        }
        word += c;
        if (c == '%') {
            word += c;
        }
    }
    return DesktopEntryLines::escaped('"' + word + '"');
}

} // namespace pallistrom::ExecLine
