// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <libevdev/libevdev-uinput.h>
#include <libevdev/libevdev.h>
#include <libudev.h>
#include <systemd/sd-event.h>

#include <memory>

namespace pallistrom {

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
