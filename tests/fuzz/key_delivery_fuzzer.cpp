// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "CheckedDelivery.h"
#include "MadeUpInputs.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>

// Each byte of the input is one choice of MadeUpInputs: of a delivery, and of what happens to it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace pallistrom;
    std::span<const std::uint8_t> rest(data, size);
    MadeUpInputs inputs([&rest](std::size_t count) {
        if (rest.empty()) {
            return std::size_t{0};
        }
        const std::size_t choice = rest.front() % count;
        rest = rest.subspan(1);
        return choice;
    });
    CheckedScript script{.setup = inputs.setup(), .inputs = {}};
    CheckedDelivery delivery(script.setup);
    while (!rest.empty()) {
        script.inputs.push_back(inputs.next(delivery));
        if (delivery.put(script.inputs.back())) {
            std::fprintf(stderr, "%s\n", script.shrunk().report().c_str());
            std::abort();
        }
    }
    return 0;
}
