// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "HardwareKeys.h"

#include "WaylandSession.h"

namespace pallistrom::vm {

std::string shownBy(Seat& seat, const std::string& command, std::size_t keys) {
    seat.clear();
    useHardware({command});
    return KeyScript::print(keysOf(seat.waitFor(
        [keys](const Seat::Events& seen) { return keysOf(seen).size() >= keys; }, Deadline{})));
}

} // namespace pallistrom::vm
