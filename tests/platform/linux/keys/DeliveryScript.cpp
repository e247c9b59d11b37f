// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "DeliveryScript.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <sstream>
#include <utility>

namespace pallistrom {

std::optional<Replacement> DeliveryInput::replacement() const {
    if (!change) {
        return std::nullopt;
    }
    return Replacement{.chords = change->chords, .isTheKeyItself = change->isTheKeyItself};
}

namespace DeliveryScript {

namespace {

constexpr std::string_view tableWord = "table:";
constexpr std::string_view letGoWord = "letgo";
constexpr std::string_view downWord = "down:";

constexpr auto flagNames = std::to_array<std::pair<std::string_view, CGEventFlags>>({
    {"shift", kCGEventFlagMaskShift},
    {"ctrl", kCGEventFlagMaskControl},
    {"alt", kCGEventFlagMaskAlternate},
    {"super", kCGEventFlagMaskCommand},
});

constexpr auto modifierNames = std::to_array<std::pair<std::string_view, Modifier>>({
    {"none", Modifier::None},
    {"shift", Modifier::Shift},
    {"control", Modifier::Control},
    {"option", Modifier::Option},
    {"command", Modifier::Command},
    {"capslock", Modifier::CapsLock},
    {"level3", Modifier::Level3},
});

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream rest(text);
    for (std::string part; std::getline(rest, part, separator);) {
        parts.push_back(part);
    }
    return parts;
}

LinuxChord parseChord(const std::string& text) {
    LinuxChord chord;
    std::vector<std::string> names = split(text, '+');
    chord.key = KeyScript::keyNamed(names.back());
    names.pop_back();
    for (const std::string& name : names) {
        const auto* const found =
            std::find_if(flagNames.begin(), flagNames.end(), [&](const auto& entry) {
                return entry.first == name;
            });
        if (found == flagNames.end()) {
            ADD_FAILURE() << "'" << name << "' is no modifier of a chord";
            continue;
        }
        chord.modifiers |= found->second;
    }
    return chord;
}

std::string printChord(const LinuxChord& chord) {
    std::string text;
    for (const auto& [name, flag] : flagNames) {
        if ((chord.modifiers & flag) != 0) {
            text += std::string(name) + "+";
        }
    }
    return text + KeyScript::nameOf(chord.key);
}

ModifierTable parseTable(const std::string& text) {
    ModifierTable table = ModifierTable::standard();
    for (const std::string& entry : split(text, ',')) {
        const std::size_t equals = entry.find('=');
        const std::string name = equals == std::string::npos ? "" : entry.substr(equals + 1);
        const auto* const found =
            std::find_if(modifierNames.begin(), modifierNames.end(), [&](const auto& modifier) {
                return modifier.first == name;
            });
        if (found == modifierNames.end()) {
            ADD_FAILURE() << "'" << entry << "' says of no key what it does";
            continue;
        }
        table.set(KeyScript::keyNamed(entry.substr(0, equals)), found->second);
    }
    return table;
}

KeySet parseKeys(const std::string& text) {
    KeySet keys;
    for (const std::string& name : split(text, ',')) {
        keys.set(KeyScript::keyNamed(name));
    }
    return keys;
}

DeliveryInput parseKey(std::string word) {
    DeliveryInput input;
    if (word.back() == '*') {
        input.sender = KeyDelivery::Sender::StillSending;
        word.pop_back();
    }
    const std::size_t sign = word.find_first_of("=>");
    if (sign != std::string::npos) {
        input.change.emplace();
        input.change->isTheKeyItself = word[sign] == '=';
        for (const std::string& chord : split(word.substr(sign + 1), ',')) {
            input.change->chords.push_back(parseChord(chord));
        }
    }
    const std::vector<KeyScript::Event> events = KeyScript::parse(word.substr(0, sign));
    if (!events.empty()) {
        input.event = events.front();
    }
    return input;
}

DeliveryInput parseWord(const std::string& word) {
    DeliveryInput input;
    if (word == letGoWord) {
        input.kind = DeliveryInput::Kind::LetGo;
    } else if (word.starts_with(tableWord)) {
        input.kind = DeliveryInput::Kind::NewTable;
        input.table = parseTable(word.substr(tableWord.size()));
    } else if (word.starts_with(downWord)) {
        input.kind = DeliveryInput::Kind::TakeOver;
        input.down = parseKeys(word.substr(downWord.size()));
    } else {
        input = parseKey(word);
    }
    return input;
}

std::string printKeys(const KeySet& keys) {
    std::string text;
    forEachKey(keys, [&text](EvdevCode key) {
        text += text.empty() ? "" : ",";
        text += KeyScript::nameOf(key);
    });
    return text;
}

std::string printKey(const DeliveryInput& input) {
    std::string text = KeyScript::print(std::vector{input.event});
    if (input.change) {
        text += input.change->isTheKeyItself ? '=' : '>';
        for (const LinuxChord& chord : input.change->chords) {
            text += &chord == input.change->chords.data() ? "" : ",";
            text += printChord(chord);
        }
    }
    return input.sender == KeyDelivery::Sender::StillSending ? text + "*" : text;
}

} // namespace

std::vector<DeliveryInput> parse(std::string_view script) {
    std::vector<DeliveryInput> inputs;
    std::istringstream words{std::string(script)};
    for (std::string word; words >> word;) {
        inputs.push_back(parseWord(word));
    }
    return inputs;
}

std::string print(const DeliveryInput& input) {
    switch (input.kind) {
    case DeliveryInput::Kind::Key:
        return printKey(input);
    case DeliveryInput::Kind::NewTable:
        return print(input.table);
    case DeliveryInput::Kind::TakeOver:
        return std::string(downWord) + printKeys(input.down);
    case DeliveryInput::Kind::LetGo:
        break;
    }
    return std::string(letGoWord);
}

std::string print(const std::vector<DeliveryInput>& inputs) {
    std::string text;
    for (const DeliveryInput& input : inputs) {
        text += text.empty() ? "" : " ";
        text += print(input);
    }
    return text;
}

std::string print(const ModifierTable& table) {
    const ModifierTable standard = ModifierTable::standard();
    std::string text(tableWord);
    for (EvdevCode key = 0; key <= ModifierTable::highestCode; ++key) {
        const Modifier modifier = table.modifierOf(key);
        if (modifier == standard.modifierOf(key)) {
            continue;
        }
        text += text.size() == tableWord.size() ? "" : ",";
        text += KeyScript::nameOf(key) + "=";
        text += modifierNames.at(static_cast<std::size_t>(modifier)).first;
    }
    return text;
}

} // namespace DeliveryScript

} // namespace pallistrom
