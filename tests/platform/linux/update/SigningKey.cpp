// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "SigningKey.h"

#include <sodium.h>

#include <stdexcept>

namespace pallistrom {

std::string base64(const unsigned char* bytes, std::size_t size) {
    std::string text(sodium_base64_encoded_len(size, sodium_base64_VARIANT_ORIGINAL), '\0');
    sodium_bin2base64(text.data(), text.size(), bytes, size, sodium_base64_VARIANT_ORIGINAL);
    text.pop_back();
    return text;
}

SigningKey::SigningKey(unsigned char number) {
    std::array<unsigned char, crypto_sign_SEEDBYTES> seed{};
    seed.fill(number);
    if (sodium_init() < 0 ||
        crypto_sign_seed_keypair(m_public.data(), m_secret.data(), seed.data()) != 0) {
        throw std::runtime_error("no key can be made");
    }
}

std::string SigningKey::publicText() const {
    return base64(m_public.data(), m_public.size());
}

Ed25519Key SigningKey::publicKey() const {
    return Ed25519Key::fromBase64(publicText()).value();
}

std::string SigningKey::signature(std::string_view message) const {
    std::array<unsigned char, crypto_sign_BYTES> bytes{};
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes are bytes
    const auto* const data = reinterpret_cast<const unsigned char*>(message.data());
    crypto_sign_detached(bytes.data(), nullptr, data, message.size(), m_secret.data());
    return base64(bytes.data(), bytes.size());
}

std::string SigningKey::signedFeed(std::string_view feed) const {
    return std::string(feed) + comment(signature(feed), feed.size()) + "\n";
}

std::string SigningKey::comment(std::string_view signature, std::size_t length) {
    return "<!-- sparkle-signatures:\nedSignature: " + std::string(signature) +
           "\nlength: " + std::to_string(length) + "\n-->";
}

} // namespace pallistrom
