// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/devices/InputNode.h"

#include "service/devices/VirtualDevice.h"

#include <fcntl.h>
#include <linux/input.h>
#include <sys/ioctl.h>

#include <cerrno>
#include <cstdint>
#include <ctime>
#include <limits>
#include <utility>

namespace pallistrom {

namespace {

// Not all that is virtual: the kernel has Bluetooth keyboards in a folder beside it.
constexpr std::string_view placeOfProgramsDevices = "/sys/devices/virtual/input/";

DeviceMaker makerOf(std::string_view place, std::string_view plug) {
    if (!place.starts_with(placeOfProgramsDevices)) {
        return DeviceMaker::Hardware;
    }
    return plug.starts_with(VirtualDevice::mark) ? DeviceMaker::ThisService
                                                 : DeviceMaker::AnotherProgram;
}

template<typename Codes>
void readCodes(const libevdev& device, unsigned type, Codes& codes) {
    for (unsigned code = 0; code < codes.size(); ++code) {
        codes[code] = libevdev_has_event_code(&device, type, code) == 1;
    }
}

} // namespace

std::optional<InputNode> InputNode::open(const std::string& path) {
    OwnedDescriptor descriptor(::open(path.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK));
    if (!descriptor.isOpen()) {
        return std::nullopt;
    }
    libevdev* made = nullptr;
    const int error = libevdev_new_from_fd(descriptor.get(), &made);
    Owned<libevdev> device(made);
    if (error < 0) {
        errno = -error;
        return std::nullopt;
    }
    // Of the clock that tells what came before a grab and what after.
    libevdev_set_clock_id(device.get(), CLOCK_MONOTONIC);
    return InputNode(path, std::move(descriptor), std::move(device));
}

InputNode::InputNode(std::string path, OwnedDescriptor descriptor, Owned<libevdev> device)
    : m_path(std::move(path)), m_descriptor(std::move(descriptor)), m_device(std::move(device)) {}

void InputNode::hear(const Types& types) const {
    // The kernel takes whole words alone.
    static_assert(EV_CNT <= std::numeric_limits<std::uint64_t>::digits);
    const std::uint64_t bits = types.to_ullong();
    input_mask mask{};
    mask.type = EV_SYN; // Stands for the types themselves.
    mask.codes_size = sizeof(bits);
    mask.codes_ptr = reinterpret_cast<std::uintptr_t>(&bits);
    ::ioctl(m_descriptor.get(), EVIOCSMASK, &mask);
}

DeviceFacts InputNode::facts(std::string_view place) const {
    const char* const plug = libevdev_get_phys(m_device.get());
    DeviceFacts facts;
    facts.node = m_path;
    facts.name = libevdev_get_name(m_device.get());
    facts.maker = makerOf(place, plug != nullptr ? plug : "");
    readCodes(*m_device, EV_KEY, facts.keys);
    readCodes(*m_device, EV_REL, facts.relativeAxes);
    readCodes(*m_device, EV_ABS, facts.absoluteAxes);
    facts.hasSwitches = libevdev_has_event_type(m_device.get(), EV_SW) == 1;
    facts.hasForceFeedback = libevdev_has_event_type(m_device.get(), EV_FF) == 1;
    return facts;
}

} // namespace pallistrom
