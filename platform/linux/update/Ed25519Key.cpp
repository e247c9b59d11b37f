// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/Ed25519Key.h"

#include <sodium.h>

namespace pallistrom {

namespace {

// May be called as often as one likes. Chooses the code that fits the processor.
bool isSodiumReady() {
    return sodium_init() >= 0;
}

// Fills `bytes`. Without an end to stop at, the library refuses what goes on after the text.
template<std::size_t Size>
bool decode(std::string_view text, std::array<unsigned char, Size>& bytes) {
    std::size_t size = 0;
    return isSodiumReady() &&
           sodium_base642bin(bytes.data(),
                             bytes.size(),
                             text.data(),
                             text.size(),
                             nullptr,
                             &size,
                             nullptr,
                             sodium_base64_VARIANT_ORIGINAL) == 0 &&
           size == Size;
}

} // namespace

std::optional<Ed25519Signature> Ed25519Signature::fromBase64(std::string_view text) {
    static_assert(sizeof(bytes) == crypto_sign_BYTES);
    Ed25519Signature signature;
    return decode(text, signature.bytes) ? std::optional(signature) : std::nullopt;
}

std::optional<Ed25519Key> Ed25519Key::fromBase64(std::string_view text) {
    static_assert(sizeof(m_bytes) == crypto_sign_PUBLICKEYBYTES);
    Ed25519Key key;
    return decode(text, key.m_bytes) ? std::optional(key) : std::nullopt;
}

bool Ed25519Key::hasSigned(std::span<const unsigned char> message,
                           const Ed25519Signature& signature) const {
    return isSodiumReady() &&
           crypto_sign_verify_detached(
               signature.bytes.data(), message.data(), message.size(), m_bytes.data()) == 0;
}

} // namespace pallistrom
