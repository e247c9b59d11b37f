// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ChildProcess.h"
#include "Environment.h"
#include "OpenSsl.h"
#include "UpdaterTest.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;

/// Feeds and archives that are on a web site as the release script writes them.
class ReleasedFeed : public UpdaterTest {
protected:
    void SetUp() override {
        UpdaterTest::SetUp();
        if (!OpenSsl::isThere()) {
            GTEST_SKIP() << "there is no openssl";
        }
        fs::create_directory(site);
        OpenSsl::run({"genpkey", "-algorithm", "ed25519", "-out", site / "key.pem"});
        fs::permissions(site / "key.pem", fs::perms::owner_read);
    }

    /// Puts a release of that version on the site; `elements` go into its item.
    void release(const std::string& version, const std::string& elements = {}) {
        write("notes", notes + "\n");
        const std::string archiveName = "pallistrom-" + version + "-linux-x86_64.tar.xz";
        write(archiveName, bytesOf(version));
        std::string address = server.address("");
        address.pop_back();
        // Bash takes our end of its input for a network, and would read the person's settings.
        ChildProcess script(
            {.arguments =
                 {"bash", "--norc", RELEASE_FEED, SOURCES, site, address, version, elements},
             .environment = {{"PATH", Environment::value("PATH")}}});
        const auto publicKey = script.readLine();
        ASSERT_EQ(script.wait(), 0);
        settings.key = Ed25519Key::fromBase64(publicKey.value_or("")).value();
        server.serve("appcast.xml", read("appcast.xml"));
        server.serve(archiveName, read(archiveName));
        fs::remove(site / archiveName);
    }

    [[nodiscard]] static std::string bytesOf(const std::string& version) {
        return "the program " + version + std::string(300000, '!');
    }

    const std::string notes = "Fixed\n\n- \"One\" & <b>two</b> are not ]]> three.";

private:
    void write(const std::string& name, const std::string& text) const {
        std::ofstream(site / name, std::ios::binary | std::ios::trunc) << text;
    }

    [[nodiscard]] std::string read(const std::string& name) const {
        std::ifstream stream(site / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    const fs::path site = folder.path() / "site";
};

TEST_F(ReleasedFeed, isOfferedWithItsNotesAndInstalled) {
    release("2.0");
    start();
    ASSERT_EQ(checkNow(), Window::Offer);
    EXPECT_EQ(windows.offer.newVersion, "2.0");
    EXPECT_EQ(windows.offer.notes, notes);
    EXPECT_FALSE(windows.offer.isCritical);
    ASSERT_EQ(installNow(), Window::Installing);
    EXPECT_EQ(installation.installed, bytesOf("2.0"));
    log();
}

TEST_F(ReleasedFeed, offersTheNewestOfItsReleases) {
    release("1.9");
    release("1.10", "<sparkle:criticalUpdate/>");
    start();
    ASSERT_EQ(checkNow(), Window::Offer);
    EXPECT_EQ(windows.offer.newVersion, "1.10");
    EXPECT_TRUE(windows.offer.isCritical);
    ASSERT_EQ(installNow(), Window::Installing);
    EXPECT_EQ(installation.installed, bytesOf("1.10"));
    log();
}

TEST_F(ReleasedFeed, keepsAChannelToThoseWhoFollowIt) {
    release("2.0", "<sparkle:channel>beta</sparkle:channel>");
    start();
    EXPECT_EQ(checkNow(), Window::UpToDate);
    log();
}

} // namespace

} // namespace pallistrom
