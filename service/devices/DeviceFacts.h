// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/KeySet.h"

#include <linux/input-event-codes.h>

#include <bitset>
#include <cstdint>
#include <string>

namespace pallistrom {

/// Who makes the events of an input device.
enum class DeviceMaker : std::uint8_t {
    Hardware,
    AnotherProgram, ///< through uinput, as other remappers and remote desktops do
    ThisService,
};

/// What a kernel's input device can do, and what it is called.
struct DeviceFacts {
    std::string node; ///< its path
    std::string name;
    DeviceMaker maker = DeviceMaker::Hardware;
    KeySet keys; ///< and buttons
    std::bitset<REL_CNT> relativeAxes;
    std::bitset<ABS_CNT> absoluteAxes;
    bool hasSwitches = false;
    bool hasForceFeedback = false;
};

} // namespace pallistrom
