// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "KeyboardsUnderTest.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>

namespace {

using namespace pallistrom;

void check(const FakeHardware& hardware, bool mustBeUp) {
    const bool isDown = hardware.seenOfKeyboard.down().any() || hardware.seenOfPointer.down().any();
    if (hardware.complaint || (mustBeUp && isDown)) {
        const std::string what = hardware.complaint.value_or("a key stays down");
        std::fprintf(stderr, "%s\n", what.c_str());
        std::abort();
    }
}

} // namespace

// Each six bytes are an event of a keyboard, one that the kernel would send or not: the type, the
// code, the value, and whether its frame ends and time goes by.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t sizeOfEvent = 6;
    FakeHardware hardware;
    KeyboardsUnderTest machine;
    machine.plugIn(hardware);
    machine.allow();
    for (std::span<const std::uint8_t> rest(data, size); rest.size() >= sizeOfEvent;
         rest = rest.subspan(sizeOfEvent)) {
        const auto code = static_cast<std::uint16_t>(rest[1] | (rest[2] << 8));
        const auto value = static_cast<std::int8_t>(rest[3]);
        hardware.unread.push_back(eventOf(rest[0] % EV_CNT, code, value));
        if ((rest[4] & 1) != 0) {
            hardware.unread.push_back(eventOf(EV_SYN, SYN_REPORT, 0));
            machine.serve();
        }
        machine.advance(Moment{100 * rest[5]});
        check(hardware, false);
    }
    machine.serve();
    machine.keyboards.aboutToSleep();
    check(hardware, true);
    hardware.unplug();
    machine.sayUnplugged(hardware);
    return 0;
}
