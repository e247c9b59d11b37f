// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/bus/Reply.h"

namespace pallistrom {

// That an answer cannot be sent has one cause, a connection that is over, and is noticed there.

void Reply::done() const {
    static_cast<void>(sd_bus_reply_method_return(m_call.get(), nullptr));
}

void Reply::value(std::uint32_t value) const {
    static_cast<void>(sd_bus_reply_method_return(m_call.get(), "u", value));
}

void Reply::invalidArguments() const {
    static_cast<void>(sd_bus_reply_method_errorf(
        m_call.get(), SD_BUS_ERROR_INVALID_ARGS, "The arguments are out of range."));
}

void Reply::tooMuch() const {
    static_cast<void>(sd_bus_reply_method_errorf(
        m_call.get(), SD_BUS_ERROR_LIMITS_EXCEEDED, "Too many calls or connections."));
}

} // namespace pallistrom
