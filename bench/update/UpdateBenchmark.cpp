// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "EventLoop.h"
#include "FakeConversation.h"
#include "FakeInstallation.h"
#include "FakeUpdateClock.h"
#include "FeedText.h"
#include "HeapPeak.h"
#include "LoopbackServer.h"
#include "SigningKey.h"
#include "TemporaryFolder.h"
#include "TimedApplication.h"
#include "platform/linux/update/AppcastUpdater.h"

#include <QThread>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <future>
#include <string>
#include <vector>

// What an update check costs: reading feeds of several sizes, and how long each step holds the main
// thread, on which keys may wait. Fails if what is promised does not hold.

namespace {

using namespace pallistrom;
using Window = FakeConversation::Window;

constexpr double longestHold = 5; // milliseconds

double milliseconds(std::chrono::nanoseconds time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

std::string feedOf(int items) {
    std::string text;
    for (int i = 1; i <= items; ++i) {
        text += FeedText::item(
            "1." + std::to_string(i),
            "<link>https://example.invalid/version</link><description><![CDATA[<ul><li>Something "
            "is better</li><li>Something else is fixed</li></ul>]]></description>"
            "<pubDate>Sat, 21 Nov 2026 13:00:00 +0000</pubDate>" +
                FeedText::archive());
    }
    return FeedText::feed(text);
}

struct Cost {
    double time = 0;   // milliseconds
    double memory = 0; // KiB
};

Cost costOf(const std::string& feed, std::size_t items) {
    constexpr int rounds = 5;
    const AppcastLimits limits{.bytes = feed.size(), .items = items};
    std::vector<double> times;
    Cost cost;
    for (int i = 0; i < rounds; ++i) {
        bench::HeapPeak::reset();
        const auto start = bench::timeAtWork();
        const auto appcast = Appcast::parse(feed, limits);
        times.push_back(milliseconds(bench::timeAtWork() - start));
        cost.memory = static_cast<double>(bench::HeapPeak::bytes()) / 1024;
        if (appcast.items.size() != items) {
            std::printf("a feed of %zu items is misread: %s\n", items, appcast.problem.c_str());
        }
    }
    std::nth_element(times.begin(), times.begin() + rounds / 2, times.end());
    cost.time = times[rounds / 2];
    return cost;
}

// Prints a table. Times are the processor's. Returns whether time and memory grow no faster than
// the feed.
bool measureReading() {
    std::printf("%-10s %12s %12s %14s %14s\n",
                "items",
                "feed KiB",
                "time ms",
                "us an item",
                "peak KiB/item");
    std::vector<Cost> perItem;
    for (const int items : {10, 1000, 10000}) {
        const std::string feed = feedOf(items);
        const Cost cost = costOf(feed, static_cast<std::size_t>(items));
        perItem.push_back({cost.time / items, cost.memory / items});
        std::printf("%-10d %12.0f %12.2f %14.2f %14.2f\n",
                    items,
                    static_cast<double>(feed.size()) / 1024,
                    cost.time,
                    1000 * perItem.back().time,
                    perItem.back().memory);
    }
    const double time = perItem[2].time / perItem[1].time;
    const double memory = perItem[2].memory / perItem[1].memory;
    const bool isRefused = !Appcast::parse(feedOf(10000)).problem.empty();
    std::printf("ten times as many items: %.2f times the time, %.2f times the memory for each\n",
                time,
                memory);
    std::printf("a feed above the limit is %s\n\n", isRefused ? "refused" : "NOT REFUSED");
    return time < 2 && memory < 1.5 && isRefused;
}

/// A server on a thread of its own, so that it does not hold the one that is measured.
class OtherThread : private QThread {
public:
    OtherThread() {
        auto server = m_made.get_future();
        start();
        m_server = server.get();
    }

    OtherThread(const OtherThread&) = delete;
    OtherThread& operator=(const OtherThread&) = delete;

    ~OtherThread() override {
        quit();
        wait();
    }

    /// To be told what to answer before anybody asks.
    [[nodiscard]] LoopbackServer& server() const { return *m_server; }

private:
    void run() override {
        LoopbackServer own;
        m_made.set_value(&own);
        exec();
    }

    std::promise<LoopbackServer*> m_made;
    LoopbackServer* m_server = nullptr;
};

class Check {
public:
    // Prints a row for each step. Returns whether none holds the loop for too long.
    bool measure() {
        constexpr std::size_t archiveSize = std::size_t{64} << 20;
        const std::string archive(archiveSize, 'x');
        m_installation.isRead = false;
        m_other.server().serve("archive", archive);
        m_other.server().serve(
            "appcast.xml",
            m_key.signedFeed(feedOf(900).replace(
                feedOf(900).find("<item>"),
                0,
                FeedText::item("2",
                               FeedText::archive(m_other.server().address("archive"),
                                                 archiveSize,
                                                 m_key.signature(archive))))));
        std::printf("%-44s %12s %12s\n", "longest hold of the main loop", "work ms", "elapsed ms");
        step(
            "start", [this] { start(); }, [] { return true; });
        step(
            "check, 900 items",
            [this] { m_updater->checkForUpdates(); },
            [this] { return m_windows.window == Window::Offer; });
        step(
            "download of 64 MiB, and its signature",
            [this] { m_windows.answer(OfferAnswer::Install); },
            [this] { return m_installation.done != nullptr; });
        step(
            "end",
            [this] {
                m_installation.done("");
                m_windows.answerInstalled(false);
            },
            [] { return true; });
        std::printf("work: the processor's time; elapsed: with what other programs took\n");
        return m_isGood;
    }

private:
    void start() {
        UpdateSettings settings;
        settings.feed = QUrl(QString::fromStdString(m_other.server().address("appcast.xml")));
        settings.key = m_key.publicKey();
        settings.interval = std::chrono::hours(24);
        settings.currentVersion = settings.shownVersion = "1";
        m_updater = std::make_unique<AppcastUpdater>(UpdaterParts{
            .settings = settings,
            .stateFolder = m_folder.path() / "state",
            .archiveFolder = m_folder.path() / "update",
            .systemVersion = "6.1",
            .machine = "x86_64",
            .channels = {},
            .limits = {},
            .clock = m_clock.makeClock(),
            .makeUserDriver = [this] { return m_windows.makeDriver(); },
            .makeInstaller = [this] { return m_installation.makeInstaller(); },
        });
    }

    template<typename Begin, typename IsOver>
    void step(const char* name, const Begin& begin, const IsOver& isOver) {
        constexpr int tries = 12;
        m_application->reset();
        QTimer::singleShot(0, begin);
        bool isBegun = false;
        QTimer::singleShot(1, [&] { isBegun = true; });
        bool isDone = false;
        // On a machine that is busy with other things, for minutes.
        for (int i = 0; i < tries && !isDone; ++i) {
            isDone = m_loop.runUntil([&] { return isBegun && isOver(); });
        }
        const double work = milliseconds(m_application->longestAtWork());
        std::printf("%-44s %12.2f %12.2f%s\n",
                    name,
                    work,
                    milliseconds(m_application->longest()),
                    isDone ? "" : "  DID NOT END");
        if (!isDone) {
            std::exit(1); // NOLINT(concurrency-mt-unsafe): the steps after it need what it did
        }
        m_isGood = m_isGood && isDone && work <= longestHold;
    }

    bench::TimedApplication* m_application = nullptr; ///< of the loop's
    EventLoop m_loop{[this](int& argc, char** argv) {
        auto application = std::make_unique<bench::TimedApplication>(argc, argv);
        m_application = application.get();
        return application;
    }};
    OtherThread m_other;
    SigningKey m_key;
    TemporaryFolder m_folder;
    FakeConversation m_windows;
    FakeInstallation m_installation;
    FakeUpdateClock m_clock;
    std::unique_ptr<AppcastUpdater> m_updater;
    bool m_isGood = true;
};

} // namespace

int main() {
    const bool isRead = measureReading();
    const bool isQuick = Check().measure();
    std::printf("\n%s\n", isRead && isQuick ? "All as promised." : "NOT AS PROMISED.");
    return isRead && isQuick ? 0 : 1;
}
