// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FeedText.h"
#include "UpdaterTest.h"

#include <gmock/gmock.h>

#include <string>

namespace pallistrom {

namespace {

using FeedText::feed;
using FeedText::item;
using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// Whatever a server sends, the worst of it is that there is no update: silence if the program
/// looked by itself, a window that says so if it was asked to.
class HostileFeed : public UpdaterTest {
protected:
    void expectRefused(const testing::Matcher<const std::string&>& reason) {
        start();
        EXPECT_EQ(checkByItself(), Window::None);
        EXPECT_THAT(windows.history, IsEmpty());
        EXPECT_THAT(log(), ElementsAre(reason));
        EXPECT_EQ(checkNow(), Window::Failure);
        EXPECT_THAT(windows.text, reason);
        EXPECT_THAT(log(), ElementsAre(reason));
        EXPECT_FALSE(std::filesystem::exists(archiveFolder()));
    }

    void serveFeed(const std::string& bytes) { server.serve("appcast.xml", bytes); }

    std::string good = item("2", archive("a", "x"));
};

TEST_F(HostileFeed, isNotSigned) {
    serveFeed(feed(good));
    expectRefused(HasSubstr("signature"));
}

TEST_F(HostileFeed, isSignedBySomebodyElse) {
    serveFeed(SigningKey(2).signedFeed(feed(good)));
    expectRefused(HasSubstr("signature"));
}

TEST_F(HostileFeed, wasChangedOnTheWay) {
    std::string bytes = key.signedFeed(feed(good));
    bytes.replace(bytes.find(">2<"), 3, ">3<");
    serveFeed(bytes);
    expectRefused(HasSubstr("signature"));
}

TEST_F(HostileFeed, hasMoreThanWasSigned) {
    std::string bytes = key.signedFeed(feed(""));
    bytes.insert(bytes.rfind("<!--"), good);
    serveFeed(bytes);
    expectRefused(HasSubstr("signature"));
}

TEST_F(HostileFeed, isCutOff) {
    const std::string bytes = key.signedFeed(feed(good));
    server.answer("appcast.xml", LoopbackServer::announcing(bytes.size(), bytes.substr(0, 300)));
    expectRefused(HasSubstr("hangs up"));
}

TEST_F(HostileFeed, endsEarly) {
    serveFeed(key.signedFeed(feed(good)).substr(0, 300));
    expectRefused(HasSubstr("signature"));
}

TEST_F(HostileFeed, isAnOldOneAgain) {
    publish(item("1.5", archive("a", "x")));
    start();
    ASSERT_EQ(checkNow(), Window::Offer);
    const std::string old = key.signedFeed(feed(item("1.5", archive("a", "x"))));
    windows.answer(OfferAnswer::Later);
    publish(good);
    ASSERT_EQ(checkNow(), Window::Offer);
    windows.answer(OfferAnswer::Later);
    log();
    windows.history.clear();
    serveFeed(old);
    expectRefused(HasSubstr("older than one that came before"));
}

TEST_F(HostileFeed, announcesTenGigabytes) {
    server.answer("appcast.xml", LoopbackServer::announcing(10'000'000'000, "<rss>"));
    expectRefused(HasSubstr("more to send"));
}

TEST_F(HostileFeed, neverEnds) {
    server.answer("appcast.xml", LoopbackServer::endless(std::string(65536, ' ')));
    expectRefused(HasSubstr("more to send"));
}

TEST_F(HostileFeed, isTooLargeThoughItIsSigned) {
    publish(good + std::string(1 << 20, ' '));
    expectRefused(HasSubstr("more to send"));
}

TEST_F(HostileFeed, drips) {
    limits.feedTime = std::chrono::milliseconds(300);
    server.answer("appcast.xml", LoopbackServer::dripping());
    expectRefused(HasSubstr("takes too long"));
}

TEST_F(HostileFeed, neverComes) {
    limits.silence = std::chrono::milliseconds(100);
    server.answer("appcast.xml", LoopbackServer::silent());
    expectRefused(HasSubstr("takes too long"));
}

TEST_F(HostileFeed, leadsInCircles) {
    server.answer("appcast.xml", LoopbackServer::redirecting("/appcast.xml"));
    expectRefused(HasSubstr("from one address to the next"));
    EXPECT_THAT(server.requests(), SizeIs(2 * 6));
}

TEST_F(HostileFeed, leadsToOtherPlaces) {
    for (const std::string target : {"file:///etc/passwd",
                                     "ftp://127.0.0.1/",
                                     "http://example.invalid/",
                                     "http://localhost/",
                                     "data:text/plain,x",
                                     "//user:word@127.0.0.1/"}) {
        server.answer("appcast.xml", LoopbackServer::redirecting(target));
        windows.history.clear();
        windows.window = Window::None;
        expectRefused(HasSubstr("not a secure one"));
    }
}

TEST_F(HostileFeed, leadsNowhere) {
    server.answer("appcast.xml", LoopbackServer::redirecting(""));
    expectRefused(AnyOf(HasSubstr("from one address to the next"), HasSubstr("secure")));
}

TEST_F(HostileFeed, isABomb) {
    std::string bomb = "<!DOCTYPE rss [<!ENTITY a \"ha\">";
    for (char c = 'b'; c < 'z'; ++c) {
        const std::string before(1, static_cast<char>(c - 1));
        bomb += "<!ENTITY " + std::string(1, c) + " \"&" + before + ";&" + before + ";\">";
    }
    std::string text = feed(item("2", "<title>&y;</title>"));
    text.insert(text.find("<rss"), bomb + "]>");
    serveFeed(text);
    expectRefused(HasSubstr("signature"));
    windows.history.clear();
    windows.window = Window::None;
    serveFeed(key.signedFeed(text));
    expectRefused(HasSubstr("document type"));
}

TEST_F(HostileFeed, isNoUtf8) {
    publish(item("2", "<description>\xC3\x28\xFF</description>"));
    expectRefused(HasSubstr("UTF-8"));
}

TEST_F(HostileFeed, isNoFeed) {
    serveFeed(key.signedFeed("<html><body>Log in to this network</body></html>"));
    expectRefused(HasSubstr("The update feed is none"));
}

TEST_F(HostileFeed, isNoHttp) {
    server.answer("appcast.xml", LoopbackServer::saying("SSH-2.0-nonsense\r\n\r\n"));
    expectRefused(HasSubstr("server"));
}

TEST_F(HostileFeed, hasNoBody) {
    server.answer("appcast.xml", LoopbackServer::saying("HTTP/1.1 204 No Content\r\n\r\n"));
    expectRefused(HasSubstr("makes no sense"));
}

TEST_F(HostileFeed, isPacked) {
    server.answer("appcast.xml",
                  LoopbackServer::saying("HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\n"
                                         "Connection: close\r\n\r\n\x1f\x8b nonsense"));
    expectRefused(AnyOf(HasSubstr("signature"), HasSubstr("server")));
}

TEST_F(HostileFeed, wantsAPassword) {
    server.answer("appcast.xml",
                  LoopbackServer::saying("HTTP/1.1 401 Unauthorized\r\nContent-Length: 0\r\n"
                                         "WWW-Authenticate: Basic realm=\"x\"\r\n\r\n"));
    expectRefused(HasSubstr("401"));
}

TEST_F(HostileFeed, offersArchivesThatCannotBe) {
    for (const std::string& archive : {FeedText::archive("https://a/", 10'000'000'000),
                                       FeedText::archive("https://a/", 0),
                                       FeedText::archive("https://a/", 5, "AAAA")}) {
        publish(item("2", archive));
        start();
        EXPECT_EQ(checkNow(), Window::UpToDate);
    }
}

class HostileArchive : public UpdaterTest {
protected:
    // Offers a good archive; what the server sends for it is another matter.
    void offer() {
        publish(item("2", archive("archive", bytes)));
        start();
        ASSERT_EQ(checkNow(), Window::Offer);
        log();
    }

    void expectRefused(const std::string& reason) {
        ASSERT_EQ(installNow(), Window::Failure);
        EXPECT_THAT(windows.text, HasSubstr(reason));
        EXPECT_THAT(log(), ElementsAre(HasSubstr("the update failed: " + windows.text)));
        EXPECT_EQ(installation.installed, "");
        EXPECT_TRUE(clock.alarm);
    }

    std::string bytes = "the new version" + std::string(300000, '!');
};

TEST_F(HostileArchive, isAnother) {
    offer();
    std::string other = bytes;
    other.back() = '?';
    server.serve("archive", other);
    expectRefused("signature");
}

TEST_F(HostileArchive, isAnotherOfOurs) {
    offer();
    (void)archive("archive", "an old version" + std::string(300001, '!'));
    expectRefused("signature");
}

TEST_F(HostileArchive, isCutOff) {
    offer();
    server.answer("archive", LoopbackServer::announcing(bytes.size(), bytes.substr(0, 1000)));
    expectRefused("hangs up");
}

TEST_F(HostileArchive, isShorter) {
    offer();
    server.serve("archive", bytes.substr(0, 1000));
    expectRefused("signature");
}

TEST_F(HostileArchive, isLonger) {
    offer();
    server.serve("archive", bytes + "!");
    expectRefused("more to send");
}

TEST_F(HostileArchive, neverEnds) {
    offer();
    server.answer("archive", LoopbackServer::endless(std::string(65536, '!')));
    expectRefused("more to send");
}

TEST_F(HostileArchive, isMissing) {
    offer();
    server.answer("archive", LoopbackServer::saying("HTTP/1.1 404 Not Found\r\n\r\n"));
    expectRefused("404");
}

TEST_F(HostileArchive, drips) {
    limits.archiveTime = std::chrono::milliseconds(300);
    offer();
    server.answer("archive", LoopbackServer::dripping());
    expectRefused("takes too long");
}

TEST_F(HostileArchive, liesWhereNoneMayBeFetched) {
    publish(item("2", FeedText::archive("file:///etc/passwd", 5, key.signature("bytes"))));
    start();
    ASSERT_EQ(checkNow(), Window::Offer);
    log();
    expectRefused("not a secure one");
}

} // namespace

} // namespace pallistrom
