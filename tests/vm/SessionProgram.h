// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "TemporaryFolder.h"
#include "WaylandSession.h"

#include <string>

namespace pallistrom::vm {

/// The desktop program itself in a session of the emulated machine, past its first start and
/// granted the keyboards. Throws std::runtime_error if the grant is not given.
class SessionProgram {
public:
    explicit SessionProgram(const WaylandSession& session);

    /// What it has written to standard error.
    [[nodiscard]] std::string log() const;

private:
    ChildProcess start(const WaylandSession& session) const;

    TemporaryFolder m_home;
    ChildProcess m_process;
};

} // namespace pallistrom::vm
