// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FeedText.h"
#include "OpenSsl.h"
#include "UpdaterTest.h"

#include <QFile>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QSslSocket>

#include <gmock/gmock.h>

#include <optional>

namespace pallistrom {

namespace {

using FeedText::item;
using testing::ElementsAre;
using testing::HasSubstr;

/// A feed by https, from a server whose certificate is its own word.
class SecureFeed : public UpdaterTest {
protected:
    void SetUp() override {
        UpdaterTest::SetUp();
        if (!OpenSsl::isThere() || !QSslSocket::supportsSsl()) {
            GTEST_SKIP() << "there is no openssl, or Qt cannot do TLS";
        }
        OpenSsl::run({"req",
                      "-x509",
                      "-newkey",
                      "rsa:2048",
                      "-nodes",
                      "-days",
                      "2",
                      "-subj",
                      "/CN=127.0.0.1",
                      "-addext",
                      "subjectAltName=IP:127.0.0.1",
                      "-keyout",
                      file("server.key"),
                      "-out",
                      file("server.crt")});
        QFile keyFile(QString::fromStdString(file("server.key")));
        QFile certificateFile(QString::fromStdString(file("server.crt")));
        ASSERT_TRUE(keyFile.open(QIODevice::ReadOnly));
        ASSERT_TRUE(certificateFile.open(QIODevice::ReadOnly));
        certificate = QSslCertificate(&certificateFile);
        auto configuration = QSslConfiguration::defaultConfiguration();
        configuration.setPrivateKey(QSslKey(&keyFile, QSsl::Rsa));
        configuration.setLocalCertificate(certificate);
        auto listener = std::make_unique<QSslServer>();
        listener->setSslConfiguration(configuration);
        secureServer.emplace(std::move(listener), "https");
        secureServer->serve("appcast.xml",
                            key.signedFeed(FeedText::feed(item("1", archive("a", "x")))));
        settings.feed = QUrl(QString::fromStdString(secureServer->address("appcast.xml")));
    }

    void TearDown() override {
        QSslConfiguration::setDefaultConfiguration(usual);
        UpdaterTest::TearDown();
    }

    [[nodiscard]] std::string file(const char* name) const { return folder.path() / name; }

    QSslConfiguration usual = QSslConfiguration::defaultConfiguration();
    QSslCertificate certificate;
    std::optional<LoopbackServer> secureServer;
};

TEST_F(SecureFeed, isReadIfTheServerIsTrusted) {
    auto trusting = usual;
    trusting.addCaCertificate(certificate);
    QSslConfiguration::setDefaultConfiguration(trusting);
    start();
    EXPECT_EQ(checkNow(), Window::UpToDate) << windows.text;
}

TEST_F(SecureFeed, isRefusedIfTheServerIsNot) {
    start();
    EXPECT_EQ(checkNow(), Window::Failure);
    EXPECT_THAT(log(), ElementsAre(HasSubstr("cannot be reached")));
    EXPECT_TRUE(secureServer->requests().empty());
}

} // namespace

} // namespace pallistrom
