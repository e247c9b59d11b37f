// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/DesktopEntryLines.h"

#include "platform/linux/Text.h"

#include <algorithm>
#include <cstdint>

namespace pallistrom::DesktopEntryLines {

namespace {

struct Line {
    enum class Kind : std::uint8_t { Remark, Group, Value, Broken };

    Kind kind = Kind::Broken;
    std::string_view name{};  ///< of the group, or the key
    std::string_view value{}; ///< as it is written
};

Line parseLine(std::string_view rawLine) {
    const auto line = Text::trimmed(rawLine);
    if (line.empty() || line.front() == '#') {
        return {.kind = Line::Kind::Remark};
    }
    if (line.front() == '[' && line.back() == ']') {
        return {.kind = Line::Kind::Group, .name = line.substr(1, line.size() - 2)};
    }
    const auto equals = line.find('=');
    const auto key = Text::trimmed(line.substr(0, equals));
    if (equals == std::string_view::npos || key.empty() || key.front() == '[') {
        return {};
    }
    return {
        .kind = Line::Kind::Value, .name = key, .value = Text::trimmed(line.substr(equals + 1))};
}

void forEachParsedLine(std::string_view text,
                       const std::function<void(std::string_view raw, const Line& line)>& use) {
    Text::forEachLine(text, [&](std::string_view raw) { use(raw, parseLine(raw)); });
}

// The text that is being made of another one: the lines so far, and where the main group ends.
class Result {
public:
    void add(std::string_view rawLine) { m_text.append(rawLine).append("\n"); }

    void add(std::string_view key, std::string_view value) {
        m_text.append(key).append("=").append(value).append(m_lineEnd);
    }

    // Looks after the group that the last line belongs to.
    void follow(std::string_view rawLine, const Line& line) {
        if (line.kind == Line::Kind::Group) {
            m_isMainGroup = line.name == mainGroup;
        }
        if (m_isMainGroup && line.kind == Line::Kind::Group) {
            m_lineEnd = rawLine.ends_with('\r') ? "\r\n" : "\n";
        }
        if (m_isMainGroup && line.kind != Line::Kind::Remark) {
            m_endOfMainGroup = m_text.size();
        }
    }

    [[nodiscard]] bool isMainGroup() const { return m_isMainGroup; }

    // Puts `values` at the end of the main group.
    void insert(const Changes& values) {
        std::string rest = m_text.substr(m_endOfMainGroup);
        m_text.erase(m_endOfMainGroup);
        for (const auto& [key, value] : values) {
            if (value) {
                add(key, *value);
            }
        }
        m_text += rest;
    }

    std::string take() { return std::move(m_text); }

private:
    std::string m_text;
    std::size_t m_endOfMainGroup = 0;
    std::string_view m_lineEnd = "\n";
    bool m_isMainGroup = false;
};

} // namespace

void forEachValue(std::string_view text,
                  std::string_view group,
                  const std::function<void(std::string_view key, std::string_view value)>& use) {
    bool isInGroup = false;
    forEachParsedLine(text, [&](std::string_view /*raw*/, const Line& line) {
        if (line.kind == Line::Kind::Group) {
            isInGroup = line.name == group;
        } else if (isInGroup && line.kind == Line::Kind::Value) {
            use(line.name, line.value);
        }
    });
}

bool isWellFormed(std::string_view text) {
    bool hasMainGroup = false;
    bool isBroken = text.find('\0') != std::string_view::npos;
    forEachParsedLine(text, [&](std::string_view /*raw*/, const Line& line) {
        const bool isMainGroup = line.kind == Line::Kind::Group && line.name == mainGroup;
        hasMainGroup = hasMainGroup || isMainGroup;
        isBroken = isBroken || line.kind == Line::Kind::Broken ||
                   (!hasMainGroup && line.kind != Line::Kind::Remark);
    });
    return hasMainGroup && !isBroken;
}

std::string withChanges(std::string_view text, const Changes& changes) {
    Result result;
    Changes missing = changes;
    forEachParsedLine(text, [&](std::string_view raw, const Line& line) {
        const auto change = result.isMainGroup() && line.kind == Line::Kind::Value
                                ? changes.find(line.name)
                                : changes.end();
        if (change == changes.end()) {
            result.add(raw);
        } else if (missing.erase(change->first) > 0 && change->second) {
            result.add(change->first, *change->second);
        }
        result.follow(raw, line);
    });
    result.insert(missing);
    return result.take();
}

std::string escaped(std::string_view text) {
    std::string value;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\\') {
            value += "\\\\";
        } else if (c == '\n') {
            value += "\\n";
        } else if (c == '\t') {
            value += "\\t";
        } else if (c == '\r') {
            value += "\\r";
        } else if (c == ' ' && (i == 0 || i + 1 == text.size())) {
            // Others may cut off blanks at the ends.
            value += "\\s";
        } else {
            value += c;
        }
    }
    return value;
}

std::string unescaped(std::string_view value) {
    constexpr std::string_view letters = "sntr\\";
    constexpr std::string_view meanings = " \n\t\r\\";
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const auto letter = value[i] == '\\' && i + 1 < value.size() ? letters.find(value[i + 1])
                                                                     : std::string_view::npos;
        if (letter == std::string_view::npos) {
            text += value[i];
        } else {
            text += meanings[letter];
            ++i;
        }
    }
    return text;
}

std::vector<std::string> list(std::string_view value) {
    std::vector<std::string> result;
    std::string item;
    const auto finishItem = [&] {
        if (const auto text = Text::trimmed(item); !text.empty()) {
            result.push_back(unescaped(text));
        }
        item.clear();
    };
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == ';') {
            finishItem();
        } else if (value[i] == '\\' && i + 1 < value.size()) {
            ++i;
            item += value[i] == ';' ? std::string(";") : std::string{'\\', value[i]};
        } else {
            item += value[i];
        }
    }
    finishItem();
    return result;
}

std::string listValue(const std::vector<std::string>& list) {
    std::string value;
    for (const std::string& item : list) {
        for (const char c : escaped(item)) {
            value += c == ';' ? std::string("\\;") : std::string{c};
        }
        value += ';';
    }
    return value;
}

} // namespace pallistrom::DesktopEntryLines
