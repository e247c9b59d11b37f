// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string_view>

namespace pallistrom {

/// A signature by which a feed or an archive is known to be ours.
struct Ed25519Signature {
    std::array<unsigned char, 64> bytes{};

    /// Reads base64 of exactly 64 bytes, with its padding and without anything else.
    [[nodiscard]] static std::optional<Ed25519Signature> fromBase64(std::string_view text);
};

/// The public key of whoever releases the program.
class Ed25519Key {
public:
    /// Reads base64 of exactly 32 bytes, with its padding and without anything else.
    [[nodiscard]] static std::optional<Ed25519Key> fromBase64(std::string_view text);

    /// Whether the owner of the key has signed `message`. From any thread.
    [[nodiscard]] bool hasSigned(std::span<const unsigned char> message,
                                 const Ed25519Signature& signature) const;

private:
    std::array<unsigned char, 32> m_bytes{};
};

} // namespace pallistrom
