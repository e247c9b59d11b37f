// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "KeyScript.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <algorithm>
#include <array>
#include <sstream>
#include <utility>

namespace pallistrom::KeyScript {

namespace {

constexpr auto names = std::to_array<std::pair<std::string_view, EvdevCode>>({
    {"ctrl", KEY_LEFTCTRL},
    {"rctrl", KEY_RIGHTCTRL},
    {"shift", KEY_LEFTSHIFT},
    {"rshift", KEY_RIGHTSHIFT},
    {"alt", KEY_LEFTALT},
    {"ralt", KEY_RIGHTALT},
    {"super", KEY_LEFTMETA},
    {"rsuper", KEY_RIGHTMETA},
    {"caps", KEY_CAPSLOCK},
    {"num", KEY_NUMLOCK},
    {"w", KEY_W},
    {"u", KEY_U},
    {"k", KEY_K},
    {"d", KEY_D},
    {"a", KEY_A},
    {"x", KEY_X},
    {"esc", KEY_ESC},
    {"enter", KEY_ENTER},
    {"tab", KEY_TAB},
    {"bs", KEY_BACKSPACE},
    {"del", KEY_DELETE},
    {"home", KEY_HOME},
    {"end", KEY_END},
    {"left", KEY_LEFT},
    {"right", KEY_RIGHT},
    {"f4", KEY_F4},
});

} // namespace

EvdevCode keyNamed(std::string_view name) {
    const auto* const found = std::find_if(
        names.begin(), names.end(), [name](const auto& entry) { return entry.first == name; });
    if (found == names.end()) {
        ADD_FAILURE() << "no key is named '" << name << "'";
        return 0;
    }
    return found->second;
}

std::string nameOf(EvdevCode key) {
    const auto* const found = std::find_if(
        names.begin(), names.end(), [key](const auto& entry) { return entry.second == key; });
    return found == names.end() ? std::to_string(key) : std::string(found->first);
}

std::vector<Event> parse(std::string_view script) {
    std::vector<Event> events;
    std::istringstream words{std::string(script)};
    for (std::string word; words >> word;) {
        const EvdevCode key = keyNamed(std::string_view(word).substr(1));
        switch (word.front()) {
        case '+':
            events.push_back({key, KeyAction::Press});
            break;
        case '-':
            events.push_back({key, KeyAction::Release});
            break;
        case '~':
            events.push_back({key, KeyAction::Repeat});
            break;
        default:
            ADD_FAILURE() << "'" << word << "' is no key event";
        }
    }
    return events;
}

std::string print(const std::vector<Event>& events) {
    std::string text;
    for (const Event& event : events) {
        constexpr std::string_view signs = "+~-";
        text += text.empty() ? "" : " ";
        text += signs.at(static_cast<std::size_t>(event.action));
        text += nameOf(event.key);
    }
    return text;
}

std::string print(const std::vector<OutputStep>& steps) {
    std::string text;
    for (const OutputStep& step : steps) {
        text += text.empty() ? "" : " ";
        switch (step.kind) {
        case OutputStep::Kind::Press:
            text += "+" + nameOf(step.key);
            break;
        case OutputStep::Kind::Release:
            text += "-" + nameOf(step.key);
            break;
        case OutputStep::Kind::Pause:
            text += ".";
            break;
        }
    }
    return text;
}

} // namespace pallistrom::KeyScript
