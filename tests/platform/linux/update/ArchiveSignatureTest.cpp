// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/ArchiveSignature.h"

#include "SigningKey.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace pallistrom {

namespace {

class ArchiveSignatureOf : public testing::Test {
protected:
    [[nodiscard]] bool isGood(const std::string& bytes, std::uint64_t length) const {
        std::ofstream(m_file, std::ios::binary | std::ios::trunc) << bytes;
        return ArchiveSignature::isGood(m_file, length, m_signature, m_key.publicKey());
    }

    [[nodiscard]] const std::string& archive() const { return m_archive; }

private:
    TemporaryFolder m_folder;
    std::filesystem::path m_file = m_folder.path() / "archive";
    SigningKey m_key;
    std::string m_archive = "an archive" + std::string(100000, '\0');
    Ed25519Signature m_signature = Ed25519Signature::fromBase64(m_key.signature(m_archive)).value();
};

TEST_F(ArchiveSignatureOf, whatWasSignedIsGood) {
    EXPECT_TRUE(isGood(archive(), archive().size()));
}

TEST_F(ArchiveSignatureOf, anythingElseIsNot) {
    std::string other = archive();
    other.back() = '\1';
    EXPECT_FALSE(isGood(other, other.size()));
    EXPECT_FALSE(isGood(archive(), archive().size() - 1));
    EXPECT_FALSE(isGood(archive() + '\0', archive().size()));
    EXPECT_FALSE(isGood(archive() + '\0', archive().size() + 1));
    EXPECT_FALSE(isGood(archive().substr(1), archive().size() - 1));
    EXPECT_FALSE(isGood("", 0));
}

TEST(ArchiveSignature, isBadWithoutAFile) {
    const SigningKey key;
    const auto signature = Ed25519Signature::fromBase64(key.signature("")).value();
    EXPECT_FALSE(ArchiveSignature::isGood("/nowhere/at/all", 0, signature, key.publicKey()));
    EXPECT_FALSE(ArchiveSignature::isGood("/", 0, signature, key.publicKey()));
}

} // namespace

} // namespace pallistrom
