// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Loop.h"
#include "service/bus/Handles.h"

#include <sys/types.h>

#include <string>

namespace pallistrom {

/// A connection to the test's bus. Throws std::runtime_error if there is none.
class Connection {
public:
    explicit Connection(const Loop& loop);

    /// One of another user. Only the superuser can make such.
    Connection(const Loop& loop, uid_t user);

    [[nodiscard]] sd_bus* get() const { return m_bus.get(); }

    /// By which the others on the bus know it.
    [[nodiscard]] std::string name() const;

    /// Takes a name that everybody knows.
    void own(const char* wellKnownName) const;

private:
    void start(const Loop& loop);

    OwnedBus m_bus;
};

} // namespace pallistrom
