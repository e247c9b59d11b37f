// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/devices/VirtualDevice.h"

#include "service/devices/DeviceClass.h"

#include <fcntl.h>
#include <linux/uinput.h>
#include <sys/ioctl.h>

#include <array>
#include <cerrno>
#include <utility>

namespace pallistrom {

namespace {

constexpr const char* maker = "/dev/uinput";

// What is shown in place of other keys, whether the keyboard has it or not.
constexpr auto shownKeys = std::to_array<EvdevCode>({
    KEY_BACKSPACE,
    KEY_DELETE,
    KEY_HOME,
    KEY_END,
    KEY_LEFT,
    KEY_RIGHT,
    KEY_UP,
    KEY_DOWN,
    KEY_LEFTCTRL,
    KEY_LEFTSHIFT,
    KEY_LEFTALT,
    KEY_LEFTMETA,
    KEY_RIGHTCTRL,
    KEY_RIGHTSHIFT,
    KEY_RIGHTALT,
    KEY_RIGHTMETA,
});

void copyCodes(const libevdev& source, libevdev& copy, unsigned type, unsigned count) {
    for (unsigned code = 0; code < count; ++code) {
        if (libevdev_has_event_code(&source, type, code) == 1) {
            libevdev_enable_event_code(
                &copy, type, code, type == EV_ABS ? libevdev_get_abs_info(&source, code) : nullptr);
        }
    }
}

void copyKeys(const libevdev& source, libevdev& copy, bool buttons) {
    for (EvdevCode code = 0; code < KEY_CNT; ++code) {
        if (isButton(code) == buttons && libevdev_has_event_code(&source, EV_KEY, code) == 1) {
            libevdev_enable_event_code(&copy, EV_KEY, code, nullptr);
        }
    }
}

// Nothing but keys and lights: a keyboard with as much as a wheel is not taken for one everywhere.
void makeKeyboard(const libevdev& source, libevdev& copy) {
    copyKeys(source, copy, false);
    for (const EvdevCode code : shownKeys) {
        libevdev_enable_event_code(&copy, EV_KEY, code, nullptr);
    }
    copyCodes(source, copy, EV_LED, LED_CNT);
    libevdev_enable_event_code(&copy, EV_MSC, MSC_SCAN, nullptr);
    if (libevdev_has_event_type(&source, EV_REP) == 1) {
        libevdev_enable_event_type(&copy, EV_REP);
    }
}

void makePointer(const libevdev& source, libevdev& copy) {
    copyKeys(source, copy, true);
    copyCodes(source, copy, EV_REL, REL_CNT);
    copyCodes(source, copy, EV_ABS, ABS_CNT);
    libevdev_enable_event_code(&copy, EV_MSC, MSC_SCAN, nullptr);
    for (unsigned property = 0; property < INPUT_PROP_CNT; ++property) {
        if (libevdev_has_property(&source, property) == 1) {
            libevdev_enable_property(&copy, property);
        }
    }
}

// What the session knows a keyboard by, in its layouts and quirks.
void copyIdentity(const libevdev& source, libevdev& copy) {
    libevdev_set_name(&copy, libevdev_get_name(&source));
    libevdev_set_id_bustype(&copy, libevdev_get_id_bustype(&source));
    libevdev_set_id_vendor(&copy, libevdev_get_id_vendor(&source));
    libevdev_set_id_product(&copy, libevdev_get_id_product(&source));
    libevdev_set_id_version(&copy, libevdev_get_id_version(&source));
}

// The kernel gives a new device a repeat of its own.
void copyRepeat(const libevdev& source, const VirtualDevice& device) {
    int delay = 0;
    int period = 0;
    if (libevdev_get_repeat(&source, &delay, &period) == 0) {
        std::array<input_event, 3> events{};
        events[0].type = EV_REP;
        events[0].code = REP_DELAY;
        events[0].value = delay;
        events[1].type = EV_REP;
        events[1].code = REP_PERIOD;
        events[1].value = period;
        device.write(events);
    }
}

} // namespace

bool VirtualDevice::canBeMade() {
    return OwnedDescriptor(::open(maker, O_RDWR | O_CLOEXEC | O_NONBLOCK)).isOpen();
}

std::optional<VirtualDevice> VirtualDevice::standingInFor(const libevdev& source,
                                                          Destination::Part part) {
    OwnedDescriptor descriptor(::open(maker, O_RDWR | O_CLOEXEC | O_NONBLOCK));
    const char* const plug = libevdev_get_phys(&source);
    const std::string markedPlug = std::string(mark) + (plug != nullptr ? plug : "");
    if (!descriptor.isOpen() || ::ioctl(descriptor.get(), UI_SET_PHYS, markedPlug.c_str()) < 0) {
        return std::nullopt;
    }

    const Owned<libevdev> copy(libevdev_new());
    copyIdentity(source, *copy);
    if (part == Destination::Part::Keyboard) {
        makeKeyboard(source, *copy);
    } else {
        makePointer(source, *copy);
    }
    libevdev_uinput* made = nullptr;
    const int error = libevdev_uinput_create_from_device(copy.get(), descriptor.get(), &made);
    if (error < 0) {
        errno = -error;
        return std::nullopt;
    }
    VirtualDevice device(std::move(descriptor), Owned<libevdev_uinput>(made));
    if (part == Destination::Part::Keyboard) {
        copyRepeat(source, device);
    }
    return device;
}

VirtualDevice::VirtualDevice(OwnedDescriptor descriptor, Owned<libevdev_uinput> device)
    : m_descriptor(std::move(descriptor)), m_device(std::move(device)) {}

void VirtualDevice::write(std::span<const input_event> events) const {
    // The kernel takes all of them at once, or the device is broken and there is nobody to tell.
    [[maybe_unused]] const auto written =
        ::write(m_descriptor.get(), events.data(), events.size_bytes());
}

std::string_view VirtualDevice::place() const {
    const char* const path = libevdev_uinput_get_syspath(m_device.get());
    return path != nullptr ? path : "";
}

} // namespace pallistrom
