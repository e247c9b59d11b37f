// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "MeasuredProgram.h"
#include "Tools.h"
#include "TrafficTrace.h"

#include <QCoreApplication>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

// What the desktop program costs beside an empty one with a tray icon, on a desktop of its own.
//
//     desktop_benchmark [<runs> [<seconds to be idle>]]

namespace {

using namespace pallistrom;
using namespace pallistrom::bench;

constexpr double aim = 1.3;

const Program ours{.path = PALLISTROM_PROGRAM, .name = QStringLiteral("org.pallistrom.Pallistrom")};
const Program empty{.path = EMPTY_TRAY, .name = QStringLiteral("org.pallistrom.EmptyTray")};

struct Options {
    int runs = 9;
    int idleSeconds = 30;
};

/// What was measured of something, run by run.
struct Samples {
    std::vector<double> milliseconds;
    std::vector<double> pss; ///< MiB
    std::vector<double> rss; ///< MiB

    void add(double time, Memory memory) {
        milliseconds.push_back(time);
        pss.push_back(memory.pss);
        rss.push_back(memory.rss);
    }
};

/// What was measured of a program.
struct Figures {
    Samples start; ///< and the memory that the program then takes
    Samples settings;
    Samples guide;
    Samples word; ///< a window with one word in it; of the empty program only
};

// Each window in a process of its own: the second one would find half of its work done.
void measure(const Desktop& desktop,
             const Program& what,
             const QString& action,
             Samples& start,
             Samples& window) {
    const MeasuredProgram program(desktop, what);
    program.waitUntilIdle();
    start.add(program.startMilliseconds(), memoryOf(program.id()));
    const double time = program.millisecondsToShow(action);
    program.waitUntilIdle();
    window.add(time, memoryOf(program.id()));
}

void measure(const Desktop& desktop, Figures& figures, Figures& least) {
    const auto settings = QStringLiteral("showSettings");
    const auto guide = QStringLiteral("showOnboarding");
    measure(desktop, ours, settings, figures.start, figures.settings);
    measure(desktop, empty, settings, least.start, least.settings);
    measure(desktop, ours, guide, figures.start, figures.guide);
    measure(desktop, empty, guide, least.start, least.guide);
    measure(desktop, empty, QStringLiteral("showWord"), least.start, least.word);
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void printRow(const char* title,
              const std::vector<double>& values,
              const std::vector<double>& least) {
    const double ratio = median(values) / median(least);
    std::printf("%-34s %10.1f %8.1f %7.2f%s\n",
                title,
                median(values),
                median(least),
                ratio,
                ratio > aim ? "  above the aim" : "");
}

void printTable(const Figures& figures, const Figures& least) {
    std::printf("%-34s %10s %8s %7s\n", "median", "Pallistrom", "empty", "ratio");
    printRow("start until the tap runs, ms", figures.start.milliseconds, least.start.milliseconds);
    printRow("memory idle, Pss MiB", figures.start.pss, least.start.pss);
    printRow("memory idle, Rss MiB", figures.start.rss, least.start.rss);
    printRow("Settings asked for and drawn, ms",
             figures.settings.milliseconds,
             least.settings.milliseconds);
    printRow("memory with Settings, Pss MiB", figures.settings.pss, least.settings.pss);
    printRow("memory with Settings, Rss MiB", figures.settings.rss, least.settings.rss);
    printRow("guide asked for and drawn, ms", figures.guide.milliseconds, least.guide.milliseconds);
    printRow("memory with the guide, Pss MiB", figures.guide.pss, least.guide.pss);
    printRow("memory with the guide, Rss MiB", figures.guide.rss, least.guide.rss);
    std::printf(
        "The aim is a ratio of %.1f or less. One word in the empty window makes it %.1f ms, "
        "%.1f MiB Pss\nand %.1f MiB Rss: that is what the toolkit's fonts take.\n"
        "Pss is less, and ratios of it greater, where other programs share the toolkit "
        "meanwhile.\n",
        aim,
        median(least.word.milliseconds),
        median(least.word.pss),
        median(least.word.rss));
}

void pass(int seconds) {
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
}

void printWakeUps(const Desktop& desktop, const Program& what, int seconds) {
    const MeasuredProgram program(desktop, what);
    const auto count = [&] {
        program.waitUntilIdle();
        const WakeUps before = wakeUpsOf(program.id());
        pass(seconds);
        return wakeUpsBetween(before, wakeUpsOf(program.id()));
    };
    const long hidden = count();
    static_cast<void>(program.millisecondsToShow(QStringLiteral("showSettings")));
    std::printf("  %-12s %5ld wake-ups, %ld with Settings open\n",
                &what == &ours ? "Pallistrom" : "empty",
                hidden,
                count());
}

void printTraffic(const Desktop& desktop, int seconds) {
    if (const auto missing = e2e::missingPrograms({"strace"}); !missing.empty()) {
        std::printf("  skipped: what is said on sockets, %s\n", missing.c_str());
        return;
    }
    TrafficTrace trace(desktop.folder() / "trace");
    const MeasuredProgram program(desktop, ours, trace.tracer());
    const auto count = [&](const char* when) {
        program.waitUntilIdle();
        trace.begin();
        pass(seconds);
        const Traffic sockets = trace.onSockets();
        const Traffic others = trace.onOthers();
        std::printf("  %-12s %5ld calls with %ld bytes on sockets, %ld with %ld on all else\n",
                    when,
                    sockets.calls,
                    sockets.bytes,
                    others.calls,
                    others.bytes);
    };
    count("Pallistrom");
    static_cast<void>(program.millisecondsToShow(QStringLiteral("showSettings")));
    count("and Settings");
}

void report(const Options& options) {
    const Desktop desktop;
    Figures figures;
    Figures least;
    for (int run = 1; run <= options.runs; ++run) {
        std::fprintf(stderr, "Run %d of %d ...\n", run, options.runs);
        measure(desktop, figures, least);
    }
    printTable(figures, least);

    // The state is polled every 1.5 seconds, the rest every 2.
    const int seconds = options.idleSeconds;
    std::printf(
        "\nIdle for %d s; the two timers tick %d times\n", seconds, seconds * 2 / 3 + seconds / 2);
    std::fflush(stdout);
    printWakeUps(desktop, ours, seconds);
    printWakeUps(desktop, empty, seconds);
    printTraffic(desktop, seconds);
}

bool read(std::string_view text, int& number) {
    const char* const end = text.data() + text.size();
    return std::from_chars(text.data(), end, number).ptr == end && number > 0;
}

std::optional<Options> optionsOf(int argc, char** argv) {
    Options options;
    const bool areGood = argc <= 3 && (argc < 2 || read(argv[1], options.runs)) &&
                         (argc < 3 || read(argv[2], options.idleSeconds));
    return areGood ? std::optional(options) : std::nullopt;
}

} // namespace

int main(int argc, char** argv) {
    const auto options = optionsOf(argc, argv);
    if (!options) {
        std::fputs("usage: desktop_benchmark [<runs> [<seconds to be idle>]]\n", stderr);
        return EXIT_FAILURE;
    }
    const std::string missing =
        e2e::missingPrograms({"Xvfb", "openbox", "dbus-daemon", "xfce4-panel"});
    if (!missing.empty()) {
        std::fprintf(stderr, "The desktop cannot be measured: %s\n", missing.c_str());
        return EXIT_FAILURE;
    }
    const QCoreApplication application(argc, argv);
    try {
        report(*options);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "The desktop cannot be measured: %s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
