// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Keys.h"

#include "ChildProcess.h"

#include <sstream>
#include <utility>

namespace pallistrom::e2e {

Keys::Keys(std::string display) : m_display{std::move(display)} {}

void Keys::play(std::string_view script) const {
    Command command{.arguments = {"xdotool"}, .environment = m_home.environment(m_display)};
    std::istringstream words{std::string{script}};
    for (std::string word; words >> word;) {
        const char* action = word.front() == '+' ? "keydown" : "keyup";
        command.arguments.insert(command.arguments.end(), {action, "--delay", "0", word.substr(1)});
    }
    run(command);
}

void Keys::press(const std::string& chord) const {
    run({.arguments = {"xdotool", "key", "--delay", "0", chord},
         .environment = m_home.environment(m_display)});
}

void Keys::type(const std::string& text) const {
    run({.arguments = {"xdotool", "type", "--delay", "0", text},
         .environment = m_home.environment(m_display)});
}

} // namespace pallistrom::e2e
