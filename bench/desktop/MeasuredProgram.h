// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "Desktop.h"
#include "ProcessFigures.h"
#include "XConnection.h"

#include <QString>

#include <chrono>
#include <string>
#include <vector>

namespace pallistrom::bench {

/// What can be measured.
struct Program {
    std::string path;
    QString name; ///< on the bus
};

/// A program that runs on a desktop, until this goes. Throws std::runtime_error if it does not do
/// as it should.
class MeasuredProgram {
public:
    /// Starts it and waits until it has taken control-W. `tracer` is a command that becomes the
    /// program whose path it is given.
    MeasuredProgram(const Desktop& desktop,
                    const Program& program,
                    const std::vector<std::string>& tracer = {});
    MeasuredProgram(const MeasuredProgram&) = delete;
    MeasuredProgram& operator=(const MeasuredProgram&) = delete;

    /// Waits until it is gone from the tray too.
    ~MeasuredProgram();

    /// How long the constructor has waited.
    [[nodiscard]] double startMilliseconds() const { return m_startMilliseconds; }

    /// Asks for a window; returns how long it took to be drawn.
    [[nodiscard]] double millisecondsToShow(const QString& action) const;

    /// Waits until it is shown in the tray and has nothing to do any more.
    void waitUntilIdle() const;

    [[nodiscard]] pid_t id() const { return m_process.id(); }

private:
    const Desktop& m_desktop;
    const Program& m_program;
    e2e::XConnection m_connection;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    ChildProcess m_process;
    double m_startMilliseconds = 0;
};

} // namespace pallistrom::bench
