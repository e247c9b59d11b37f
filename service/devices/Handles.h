// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <libevdev/libevdev-uinput.h>
#include <libevdev/libevdev.h>
#include <libudev.h>
#include <systemd/sd-event.h>
#include <unistd.h>

#include <memory>
#include <utility>

namespace pallistrom {

/// Owns a file descriptor.
class OwnedDescriptor {
public:
    explicit OwnedDescriptor(int descriptor = -1) : m_descriptor(descriptor) {}

    OwnedDescriptor(OwnedDescriptor&& other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1)) {}

    OwnedDescriptor& operator=(OwnedDescriptor&& other) noexcept {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }

    OwnedDescriptor(const OwnedDescriptor&) = delete;
    OwnedDescriptor& operator=(const OwnedDescriptor&) = delete;

    ~OwnedDescriptor() {
        if (m_descriptor >= 0) {
            ::close(m_descriptor);
        }
    }

    [[nodiscard]] int get() const { return m_descriptor; }

    explicit operator bool() const { return m_descriptor >= 0; }

private:
    int m_descriptor;
};

/// Gives handles of the system's libraries back to them.
struct HandleReleaser {
    void operator()(libevdev* device) const noexcept { libevdev_free(device); }

    void operator()(libevdev_uinput* device) const noexcept { libevdev_uinput_destroy(device); }

    void operator()(sd_event_source* source) const noexcept {
        sd_event_source_disable_unref(source);
    }

    void operator()(udev* context) const noexcept { udev_unref(context); }

    void operator()(udev_device* device) const noexcept { udev_device_unref(device); }

    void operator()(udev_enumerate* list) const noexcept { udev_enumerate_unref(list); }

    void operator()(udev_monitor* monitor) const noexcept { udev_monitor_unref(monitor); }
};

template<typename Handle>
using Owned = std::unique_ptr<Handle, HandleReleaser>;

using OwnedEventSource = Owned<sd_event_source>;

} // namespace pallistrom
