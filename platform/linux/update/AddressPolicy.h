// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

class QUrl;

namespace pallistrom {

/// From where anything may be fetched.
enum class AddressPolicy : std::uint8_t {
    SecureOnly,  ///< https
    LoopbackToo, ///< or http from this computer, by its number
};

/// Returns the policy for all that a feed leads to. Only a build whose own feed address is on this
/// computer, such as one under test, may fetch from there: no feed and no server can lead to it.
[[nodiscard]] AddressPolicy policyForFeed(const QUrl& feed);

/// Whether `policy` lets anything be fetched from `address`.
[[nodiscard]] bool mayFetch(const QUrl& address, AddressPolicy policy);

/// Whether `address` is on this computer, said by number.
[[nodiscard]] bool isLoopback(const QUrl& address);

} // namespace pallistrom
