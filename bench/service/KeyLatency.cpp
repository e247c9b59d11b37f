// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "KeyMeasurements.h"
#include "MeasuredService.h"
#include "TestKeyboard.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

// How long keys take from a keyboard, through a program that grabs it, to the one that this program
// makes; how much of the processor they take, and how much memory the program.
//
//     key_latency [--keys N] [--keyboards N] [--only-plain] -- PROGRAM [ARGUMENT...]
//
// There may be more keyboards on which nobody types. Rewritten keys are measured where the program
// rewrites any: not with --only-plain. An argument "{}" stands for the keyboard's event node.
// Prints one figure a line.

using namespace pallistrom;

namespace {

struct Request {
    std::size_t keys = 2'000;
    std::size_t keyboards = 1;
    bool isOnlyPlain = false;
    std::vector<std::string> command;
};

Request requestFrom(const std::vector<std::string>& arguments) {
    Request request;
    const auto dashes = std::find(arguments.begin(), arguments.end(), "--");
    for (auto option = arguments.begin(); option != dashes; ++option) {
        const bool hasValue = option + 1 != dashes;
        if (*option == "--only-plain") {
            request.isOnlyPlain = true;
        } else if (*option == "--keys" && hasValue) {
            request.keys = std::stoul(*++option);
        } else if (*option == "--keyboards" && hasValue) {
            request.keyboards = std::stoul(*++option);
        } else {
            throw std::runtime_error("unknown argument: " + *option);
        }
    }
    if (dashes == arguments.end() || dashes + 1 == arguments.end()) {
        throw std::runtime_error("which program?");
    }
    request.command.assign(dashes + 1, arguments.end());
    return request;
}

void measure(Request request) {
    TestKeyboard keyboard{"Keyboard of a benchmark"};
    std::vector<std::unique_ptr<TestKeyboard>> others;
    while (others.size() + 1 < request.keyboards) {
        others.push_back(std::make_unique<TestKeyboard>("Keyboard beside it"));
    }
    std::replace(
        request.command.begin(), request.command.end(), std::string("{}"), keyboard.path());
    MeasuredService service(request.command);
    if (!keyboard.findOutput(std::chrono::seconds(30))) {
        throw std::runtime_error("no keyboard comes out");
    }
    KeyMeasurements measurements(keyboard, service, request.keys);
    measurements.warmUp();
    measurements.plainKeys("plain");
    if (request.keyboards > 1) {
        return;
    }
    measurements.bursts();
    measurements.plainKeysUnderLoad();
    for (const unsigned eachSecond : {10U, 100U, 1'000U, 10'000U}) {
        measurements.plainKeysAtRate(eachSecond);
    }
    measurements.controlW();
    if (!request.isOnlyPlain) {
        measurements.sequence("control-u", KEY_LEFTCTRL, KEY_U);
        measurements.sequence("option-d", KEY_LEFTALT, KEY_D);
    }
    measurements.idleness();
    std::printf("resident %.2f MiB\n", service.residentMebibytes());
}

} // namespace

int main(int argc, char** argv) {
    try {
        measure(requestFrom({argv + 1, argv + argc}));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "key_latency: %s\n", error.what());
        return 1;
    }
    return 0;
}
