// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "SessionField.h"

#include <stdexcept>
#include <string_view>

namespace pallistrom::vm {

namespace {

constexpr std::string_view statePrefix = "text ";

Command fieldCommand(const WaylandSession& session,
                     const std::string& program,
                     SessionField::Display display) {
    Command command = session.command({FIELD_FOLDER "/" + program});
    if (display == SessionField::Display::X) {
        command.environment["GDK_BACKEND"] = "x11";
        command.environment.erase("WAYLAND_DISPLAY");
    }
    return command;
}

} // namespace

SessionField::SessionField(const WaylandSession& session,
                           const std::string& program,
                           Display display)
    : m_process{fieldCommand(session, program, display)} {
    if (m_process.readLine(WaylandSession::patience()) != "ready") {
        throw std::runtime_error{"the text field does not get the keyboard"};
    }
}

void SessionField::set(const std::string& text) {
    m_process.writeLine("set " +
                        e2e::encoded({.text = text, .cursor = static_cast<int>(text.size())}));
    if (waitFor(text) != text) {
        throw std::runtime_error{"the text field does not take a new text"};
    }
}

std::string SessionField::waitFor(const std::string& text) {
    while (m_text != text && readText()) {
    }
    return m_text;
}

bool SessionField::readText() {
    const auto line = m_process.readLine(Deadline{std::chrono::seconds{60}});
    if (!line || !line->starts_with(statePrefix)) {
        return false;
    }
    const auto state = e2e::decoded(std::string_view{*line}.substr(statePrefix.size()));
    m_text = state ? state->text : m_text;
    return state.has_value();
}

} // namespace pallistrom::vm
