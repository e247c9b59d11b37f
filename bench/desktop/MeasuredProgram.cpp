// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "MeasuredProgram.h"

#include "KeyGrab.h"
#include "WindowWatch.h"

#include <chrono>
#include <csignal>
#include <stdexcept>

namespace pallistrom::bench {

namespace {

using Clock = std::chrono::steady_clock;

constexpr e2e::KeyCombination controlW{.keysym = 'w', .modifiers = XCB_MOD_MASK_CONTROL};

double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

Command
commandOf(const Desktop& desktop, const Program& program, const std::vector<std::string>& tracer) {
    Command command{.arguments = tracer,
                    .environment = desktop.environment(),
                    .errorFile = desktop.folder() / "program.log"};
    command.arguments.push_back(program.path);
    return command;
}

} // namespace

MeasuredProgram::MeasuredProgram(const Desktop& desktop,
                                 const Program& program,
                                 const std::vector<std::string>& tracer)
    : m_desktop(desktop),
      m_program(program),
      m_connection(desktop.display()),
      m_process(commandOf(desktop, program, tracer)) {
    if (!waitUntil([&] { return isGrabbed(m_connection, controlW); },
                   Deadline(std::chrono::seconds(20)))) {
        throw std::runtime_error(program.path + " does not come up");
    }
    m_startMilliseconds = millisecondsSince(m_start);
}

MeasuredProgram::~MeasuredProgram() {
    m_process.signal(SIGKILL);
    static_cast<void>(m_process.wait());
    try {
        m_desktop.waitForIcons(0);
    } catch (const std::runtime_error&) {
        // The next program will not come to rest either, and says so.
    }
}

double MeasuredProgram::millisecondsToShow(const QString& action) const {
    WindowWatch watch(m_desktop.display());
    const auto start = Clock::now();
    m_desktop.activate(m_program.name, action);
    watch.waitUntilDrawn();
    return millisecondsSince(start);
}

void MeasuredProgram::waitUntilIdle() const {
    m_desktop.waitForIcons(1);
    waitUntilQuiet(id());
}

} // namespace pallistrom::bench
