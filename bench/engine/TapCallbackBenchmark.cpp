// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "CountedAllocations.h"
#include "TemporaryFolder.h"
#include "engine/EventTapController.h"
#include "engine/KeyCode.h"
#include "engine/Preferences.h"
#include "engine/ShortcutLibrary.h"
#include "engine/tapCallback.h"
#include "platform/Application.h"
#include "platform/linux/KeyFilter.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

// What a key press costs in tapCallback(), as both taps call it, with the user defaults that the
// program really has, beside the least that any filter with four switches must do.
//
//     tap_callback_benchmark [flags of Google Benchmark]
//     tap_callback_benchmark --count <case> <n>    runs one case n times, for whoever counts

namespace {

using namespace pallistrom;

// A settings folder that goes with the program.
class PrivateHome {
public:
    PrivateHome() {
        setenv("XDG_CONFIG_HOME", m_folder.path().c_str(), 1); // NOLINT(concurrency-mt-unsafe)
    }

private:
    TemporaryFolder m_folder;
};

struct Case {
    std::string_view name;
    CGEvent press;
    bool isAltDOn = true; ///< all other switches are on
};

constexpr std::string_view baseline = "baseline";

// A pass asks for all four switches, and so do those that end with option-D, the last shortcut.
constexpr auto cases = std::to_array<Case>({
    {.name = "pass", .press = {.keyCode = 0, .flags = 0, .isDown = true}},
    {.name = "switched-off",
     .press = {.keyCode = KeyCode::d, .flags = kCGEventFlagMaskAlternate, .isDown = true},
     .isAltDOn = false},
    {.name = "rewrite",
     .press = {.keyCode = KeyCode::w, .flags = kCGEventFlagMaskControl, .isDown = true}},
    {.name = "rewrite-last",
     .press = {.keyCode = KeyCode::d, .flags = kCGEventFlagMaskAlternate, .isDown = true}},
    {.name = "sequence",
     .press = {.keyCode = KeyCode::k, .flags = kCGEventFlagMaskControl, .isDown = true}},
});

// As people leave the switches: only what they changed is stored, the rest is registered. That
// makes the slowest pass, for whatever is not stored is looked for twice.
void setSwitches(const Case& what) {
    Preferences::setHasCompletedOnboarding(true);
    Preferences::setEnabled("ctrlK", true);
    Preferences::setEnabled("altD", what.isAltDOn);
}

// The baseline.
struct ReadFourBooleans {
    void operator()() const {
        static std::array<std::atomic<bool>, 4> switches;
        bool areAllOn = true;
        for (const auto& one : switches) {
            areAllOn &= one.load(std::memory_order_relaxed);
        }
        benchmark::DoNotOptimize(areAllOn);
    }
};

// Calls `use` with the code that the case `name` measures. Returns whether there is such a case.
template<typename Use>
bool withActionOf(std::string_view name, const Use& use) {
    if (name == baseline) {
        use(ReadFourBooleans());
        return true;
    }
    const auto* const found =
        std::find_if(cases.begin(), cases.end(), [&](const Case& one) { return one.name == name; });
    if (found == cases.end()) {
        return false;
    }
    setSwitches(*found);
    KeyFilter filter(tapCallback, nullptr, {});
    use([&] { benchmark::DoNotOptimize(filter.ask(found->press)); });
    return true;
}

void measure(benchmark::State& state) {
    const auto number = static_cast<std::size_t>(state.range());
    const std::string_view name = number == 0 ? baseline : cases.at(number - 1).name;
    state.SetLabel(std::string(name));
    withActionOf(name, [&](const auto& action) {
        const std::size_t before = countedAllocations();
        for (const auto _ : state) {
            action();
        }
        state.counters["allocations"] = benchmark::Counter(
            static_cast<double>(countedAllocations() - before), benchmark::Counter::kAvgIterations);
    });
}

BENCHMARK(measure)->DenseRange(0, cases.size());

int count(std::string_view name, std::string_view number) {
    long calls = 0;
    std::from_chars(number.data(), number.data() + number.size(), calls);
    const bool isKnown = withActionOf(name, [&](const auto& action) {
        for (long i = 0; i < calls; ++i) {
            action();
        }
    });
    if (!isKnown) {
        std::fprintf(stderr, "no such case: %s\n", name.data());
    }
    return isKnown ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv) {
    const PrivateHome home;
    Application::sharedApplication(argc, argv);
    Preferences::registerDefaults(ShortcutLibrary::all);
    tapController = std::make_shared<EventTapController>(ShortcutLibrary::all);

    if (argc == 4 && argv[1] == std::string_view("--count")) {
        return count(argv[2], argv[3]);
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return EXIT_FAILURE;
    }
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}
