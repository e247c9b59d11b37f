// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FeedText.h"
#include "OpenSsl.h"
#include "UpdaterTest.h"

#include <fstream>
#include <iterator>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;

/// Keys and signatures of a program that knows nothing of this one.
class ForeignTool : public UpdaterTest {
protected:
    void SetUp() override {
        UpdaterTest::SetUp();
        if (!OpenSsl::isThere()) {
            GTEST_SKIP() << "there is no openssl";
        }
        OpenSsl::run({"genpkey", "-algorithm", "ed25519", "-out", file("key")});
    }

    // The last bytes of the key's usual form are the key.
    [[nodiscard]] Ed25519Key publicKey() {
        OpenSsl::run(
            {"pkey", "-in", file("key"), "-pubout", "-outform", "DER", "-out", file("public")});
        const std::string bytes = read("public");
        return Ed25519Key::fromBase64(inBase64(bytes.substr(bytes.size() - 32))).value();
    }

    [[nodiscard]] std::string signature(const std::string& message) {
        std::ofstream(file("message"), std::ios::binary | std::ios::trunc) << message;
        OpenSsl::run({"pkeyutl",
                      "-sign",
                      "-rawin",
                      "-inkey",
                      file("key"),
                      "-in",
                      file("message"),
                      "-out",
                      file("signature")});
        return inBase64(read("signature"));
    }

private:
    [[nodiscard]] std::string file(const char* name) const { return folder.path() / name; }

    [[nodiscard]] std::string read(const char* name) const {
        std::ifstream stream(file(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    [[nodiscard]] std::string inBase64(const std::string& bytes) {
        std::ofstream(file("bytes"), std::ios::binary | std::ios::trunc) << bytes;
        OpenSsl::run({"base64", "-A", "-in", file("bytes"), "-out", file("base64")});
        return read("base64");
    }
};

TEST_F(ForeignTool, signsFeedsAndArchivesThatAreAccepted) {
    settings.key = publicKey();
    const std::string bytes = "the new version";
    server.serve("archive", bytes);
    const std::string feed = FeedText::feed(FeedText::item(
        "2", FeedText::archive(server.address("archive"), bytes.size(), signature(bytes))));
    server.serve("appcast.xml",
                 feed + "\n" + SigningKey::comment(signature(feed + "\n"), feed.size() + 1) + "\n");
    start();
    ASSERT_EQ(checkNow(), Window::Offer);
    ASSERT_EQ(installNow(), Window::Installing);
    EXPECT_EQ(installation.installed, bytes);
    log();
}

} // namespace

} // namespace pallistrom
