// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/bus/Handles.h"

#include <cstdint>

namespace pallistrom {

/// The answer that a caller waits for. To be given once; whoever drops it leaves the caller
/// without.
class Reply {
public:
    /// The answer to `call`.
    explicit Reply(sd_bus_message* call) : m_call{hold(call)} {}

    void done() const;
    void value(std::uint32_t value) const;
    void invalidArguments() const;
    void tooMuch() const;

private:
    OwnedMessage m_call;
};

} // namespace pallistrom
