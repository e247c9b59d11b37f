// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Field.h"

#include <optional>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace pallistrom::e2e {

namespace {

constexpr std::string_view statePrefix = "text ";

ChildProcess
start(const Home& home, const std::string& program, const std::string& display, Lines lines) {
    std::vector<std::string> arguments{program};
    if (lines == Lines::Many) {
        arguments.emplace_back("--multiline");
    }
    return ChildProcess{{.arguments = arguments,
                         .environment = home.environment(display),
                         .errorFile = home.path() / "field.log"}};
}

} // namespace

Field::Field(const std::string& program, const std::string& display, Lines lines)
    : m_process{start(m_home, program, display, lines)} {
    if (m_process.readLine() != "ready") {
        throw std::runtime_error{"the text field does not get the keyboard"};
    }
}

void Field::set(const TextState& state) {
    m_process.writeLine("set " + encoded(state));
    const Deadline deadline;
    // Also if it is in this state already: only its answer says that it has obeyed.
    do {
        if (!readState(deadline)) {
            throw std::runtime_error{"the text field does not take a new text"};
        }
    } while (m_lastState != state);
}

TextState Field::waitFor(const TextState& wanted) {
    return waitFor([&](const TextState& state) { return state == wanted; });
}

TextState Field::waitFor(const std::function<bool(const TextState&)>& isWanted) {
    const Deadline deadline;
    while (!isWanted(m_lastState) && readState(deadline)) {
    }
    return m_lastState;
}

bool Field::readState(Deadline deadline) {
    const std::optional<std::string> line = m_process.readLine(deadline);
    if (!line || !line->starts_with(statePrefix)) {
        return false;
    }
    const auto state = decoded(std::string_view{*line}.substr(statePrefix.size()));
    m_lastState = state.value_or(m_lastState);
    return state.has_value();
}

} // namespace pallistrom::e2e
