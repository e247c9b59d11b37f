// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Keys.h"

#include "ChildProcess.h"

#include <ostream>
#include <sstream>
#include <utility>

namespace pallistrom::e2e {

void PrintTo(Keyboard keyboard, std::ostream* out) {
    *out << (keyboard == Keyboard::Faked ? "faked keys" : "keyboard");
}

Keys::Keys(std::string display, Keyboard keyboard) : m_display{std::move(display)} {
    if (keyboard == Keyboard::Device) {
        m_device.emplace(m_display);
    }
}

void Keys::play(std::string_view script) const {
    if (m_device) {
        m_device->play(script);
        return;
    }
    Command command{.arguments = {"xdotool"}, .environment = m_home.environment(m_display)};
    std::istringstream words{std::string{script}};
    for (std::string word; words >> word;) {
        const char* action = word.front() == '+' ? "keydown" : "keyup";
        command.arguments.insert(command.arguments.end(), {action, "--delay", "0", word.substr(1)});
    }
    run(command);
}

void Keys::press(const std::string& chord) const {
    if (m_device) {
        m_device->press(chord);
        return;
    }
    run({.arguments = {"xdotool", "key", "--delay", "0", chord},
         .environment = m_home.environment(m_display)});
}

void Keys::type(const std::string& text) const {
    if (m_device) {
        m_device->type(text);
        return;
    }
    run({.arguments = {"xdotool", "type", "--delay", "0", text},
         .environment = m_home.environment(m_display)});
}

} // namespace pallistrom::e2e
