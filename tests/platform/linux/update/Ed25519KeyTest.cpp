// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/Ed25519Key.h"

#include "SigningKey.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace pallistrom {

namespace {

bool hasSigned(const Ed25519Key& key, std::string_view message, const std::string& signature) {
    const auto read = Ed25519Signature::fromBase64(signature);
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes are bytes
    const auto* const bytes = reinterpret_cast<const unsigned char*>(message.data());
    return read && key.hasSigned({bytes, message.size()}, *read);
}

// From RFC 8032, section 7.1, tests 1 and 2.
TEST(Ed25519Key, agreesWithTheStandard) {
    const auto first = Ed25519Key::fromBase64("11qYAYKxCrfVS/7TyWQHOg7hcvPapiMlrwIaaPcHURo=");
    ASSERT_TRUE(first);
    EXPECT_TRUE(hasSigned(*first,
                          "",
                          "5VZDAMNgrHKQhuLMgG6CioSHfx645dl02HPgZSJJAVVfuIIVkKM7rMYeOXAc+bRr"
                          "0lv18FlbviRlUUFDjnoQCw=="));
    const auto second = Ed25519Key::fromBase64("PUAXw+hDiVqStwqnTRt+vJyYLM8uxJaMwM1V8Sr0Zgw=");
    ASSERT_TRUE(second);
    EXPECT_TRUE(hasSigned(*second,
                          "\x72",
                          "kqAJqfDUyrhyDoILX2QlQKKye1QWUD+Ps3YiI+vbadoIWsHkPhWZbkWPNhPQ8R2M"
                          "OHsurrQwKu6wDSkWErsMAA=="));
}

TEST(Ed25519Key, knowsItsOwnSignatures) {
    const SigningKey own(1);
    const SigningKey other(2);
    const std::string message = "what is signed";
    EXPECT_TRUE(hasSigned(own.publicKey(), message, own.signature(message)));
    EXPECT_TRUE(hasSigned(own.publicKey(), "", own.signature("")));
    EXPECT_FALSE(hasSigned(own.publicKey(), message, other.signature(message)));
    EXPECT_FALSE(hasSigned(own.publicKey(), "What is signed", own.signature(message)));
    EXPECT_FALSE(hasSigned(own.publicKey(), "what is signed ", own.signature(message)));
}

TEST(Ed25519Key, knowsEveryBitOfASignature) {
    const SigningKey key;
    const std::string message = "what is signed";
    const auto good = Ed25519Signature::fromBase64(key.signature(message)).value();
    for (std::size_t i = 0; i < good.bytes.size() * 8; ++i) {
        auto bad = good;
        bad.bytes.at(i / 8) ^= static_cast<unsigned char>(1U << (i % 8));
        EXPECT_FALSE(hasSigned(key.publicKey(), message, base64(bad.bytes.data(), 64))) << i;
    }
}

TEST(Ed25519Key, isReadFromStrictBase64Only) {
    const std::string good = SigningKey().publicText();
    ASSERT_TRUE(Ed25519Key::fromBase64(good));
    const std::array<unsigned char, 33> bytes{};
    for (const std::string& bad : {std::string(),
                                   good.substr(1),
                                   good.substr(0, good.size() - 1),
                                   good + "=",
                                   good + "\n",
                                   " " + good,
                                   good.substr(0, 20) + "\n" + good.substr(20),
                                   good + good,
                                   base64(bytes.data(), 31),
                                   base64(bytes.data(), 33),
                                   std::string("pXAx!!=="),
                                   std::string(43, '-') + "=",
                                   std::string(44, 'A')}) {
        EXPECT_FALSE(Ed25519Key::fromBase64(bad)) << bad;
    }
}

// Two texts for the same bytes would be two signatures for the same archive.
TEST(Ed25519Signature, isReadFromStrictBase64Only) {
    const std::string good = SigningKey().signature("message");
    ASSERT_TRUE(Ed25519Signature::fromBase64(good));
    ASSERT_TRUE(good.ends_with("=="));
    const std::array<unsigned char, 65> bytes{};
    std::string unusedBits = base64(bytes.data(), 64);
    unusedBits[85] = 'B';
    for (const std::string& bad : {std::string(),
                                   good.substr(0, 86),
                                   good.substr(0, 87),
                                   good + "A",
                                   unusedBits,
                                   base64(bytes.data(), 63),
                                   base64(bytes.data(), 65),
                                   std::string(1000000, 'A')}) {
        EXPECT_FALSE(Ed25519Signature::fromBase64(bad)) << bad.substr(0, 100);
    }
}

} // namespace

} // namespace pallistrom
