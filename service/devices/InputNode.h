// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/OwnedDescriptor.h"
#include "service/devices/DeviceFacts.h"
#include "service/devices/Handles.h"

#include <bitset>
#include <optional>
#include <string>

namespace pallistrom {

/// An input device of the kernel, opened.
class InputNode {
public:
    /// Opens the device at `path`; nothing if that fails, and then errno says why.
    static std::optional<InputNode> open(const std::string& path);

    /// Returns what it is. `place` is where the system has it below /sys.
    [[nodiscard]] DeviceFacts facts(std::string_view place) const;

    using Types = std::bitset<EV_CNT>;

    /// Has the kernel keep for us what the device sends of these types of events, and nothing else.
    void hear(const Types& types) const;

    [[nodiscard]] int descriptor() const { return m_descriptor.get(); }

    [[nodiscard]] libevdev& device() const { return *m_device; }

    [[nodiscard]] const std::string& path() const { return m_path; }

private:
    InputNode(std::string path, OwnedDescriptor descriptor, Owned<libevdev> device);

    std::string m_path;
    OwnedDescriptor m_descriptor;
    Owned<libevdev> m_device;
};

} // namespace pallistrom
