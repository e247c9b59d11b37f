// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/Ed25519Key.h"

#include <array>
#include <string>
#include <string_view>

namespace pallistrom {

/// The key of somebody who releases programs.
class SigningKey {
public:
    /// Another key for each number.
    explicit SigningKey(unsigned char number = 1);

    /// In base64, as the information list has it.
    [[nodiscard]] std::string publicText() const;

    [[nodiscard]] Ed25519Key publicKey() const;

    /// In base64.
    [[nodiscard]] std::string signature(std::string_view message) const;

    /// Returns `feed` with its signature at the end.
    [[nodiscard]] std::string signedFeed(std::string_view feed) const;

    /// Returns the comment that ends a signed feed.
    [[nodiscard]] static std::string comment(std::string_view signature, std::size_t length);

private:
    std::array<unsigned char, 32> m_public{};
    std::array<unsigned char, 64> m_secret{};
};

/// Returns base64.
[[nodiscard]] std::string base64(const unsigned char* bytes, std::size_t size);

} // namespace pallistrom
