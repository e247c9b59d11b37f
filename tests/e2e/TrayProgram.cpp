// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "TrayProgram.h"

#include <stdexcept>

namespace pallistrom::e2e {

std::string TrayProgram::path() {
    return TRAY_PROGRAM;
}

TrayProgram::TrayProgram(const std::map<std::string, std::string>& environment,
                         const std::filesystem::path& errorFile)
    : m_process{{.arguments = {path()}, .environment = environment, .errorFile = errorFile}} {}

std::string TrayProgram::heard() {
    return m_process.readLine().value_or("nothing");
}

void TrayProgram::flip(const std::string& flag) {
    order(flag, "done " + flag);
}

void TrayProgram::refresh(int times) {
    order("ticks " + std::to_string(times), "ticked");
}

void TrayProgram::order(const std::string& order, const std::string& answer) {
    m_process.writeLine(order);
    const std::string line = heard();
    if (line != answer) {
        throw std::runtime_error{"expected \"" + answer + "\", not \"" + line + '"'};
    }
}

} // namespace pallistrom::e2e
