// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/OwnedDescriptor.h"
#include "service/devices/DeviceFacts.h"
#include "service/devices/Handles.h"
#include "service/devices/OutputDevices.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace pallistrom {

/// A device that the kernel shows to all programs like any other, and whose events we make. It ends
/// with this object, and the kernel lets go of its keys.
class VirtualDevice {
public:
    /// How devices of this service are marked, at the beginning of where they are plugged in.
    static constexpr std::string_view mark = "pallistrom/";

    /// Returns whether any can be made here.
    [[nodiscard]] static bool canBeMade();

    /// Makes one with the `part` of what `source` has, under the same name; nothing if that fails,
    /// and then errno says why.
    static std::optional<VirtualDevice> standingInFor(const libevdev& source,
                                                      Destination::Part part);

    void write(std::span<const input_event> events) const;

    /// Where the system has it below /sys.
    [[nodiscard]] std::string_view place() const;

private:
    VirtualDevice(OwnedDescriptor descriptor, Owned<libevdev_uinput> device);

    OwnedDescriptor m_descriptor;
    Owned<libevdev_uinput> m_device; ///< goes before its descriptor
};

} // namespace pallistrom
