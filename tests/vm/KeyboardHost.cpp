// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "KeyboardHost.h"

#include "Environment.h"

#include <iterator>
#include <sstream>
#include <stdexcept>

namespace pallistrom::vm {

namespace {

std::vector<std::string> wordsOf(const std::string& command) {
    std::istringstream words{PROGRAM_FOLDER "/" + command};
    return {std::istream_iterator<std::string>{words}, {}};
}

} // namespace

KeyboardHost::KeyboardHost(const std::string& command)
    : m_process{
          {.arguments = wordsOf(command), .environment = {{"PATH", Environment::value("PATH")}}}} {}

void KeyboardHost::tell(const std::string& command) {
    m_process.writeLine(command);
    const std::string answer = "done " + command.substr(0, command.find(' '));
    const Deadline deadline{std::chrono::minutes{1}};
    // It tells other things as well.
    for (auto line = m_process.readLine(deadline); line != answer;
         line = m_process.readLine(deadline)) {
        if (!line) {
            throw std::runtime_error{"the keyboards' host does not obey: " + command};
        }
    }
}

} // namespace pallistrom::vm
