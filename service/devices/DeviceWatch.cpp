// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/devices/DeviceWatch.h"

#include "platform/Log.h"

#include <sys/epoll.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace pallistrom {

namespace {

constexpr std::string_view folder = "/dev/input/";
constexpr std::string_view eventNode = "/dev/input/event";
constexpr std::string_view usualSeat = "seat0";

std::string_view textOf(const char* text) {
    return text != nullptr ? text : "";
}

bool isOfUsualSeat(udev_device& device) {
    const std::string_view seat = textOf(udev_device_get_property_value(&device, "ID_SEAT"));
    return seat.empty() || seat == usualSeat;
}

} // namespace

void DeviceWatch::start() {
    if (m_udev) {
        return;
    }
    m_udev.reset(udev_new());
    // Without udev the kernel itself says what there is, before anybody has set it up.
    const bool hasUdev = ::access("/run/udev/control", F_OK) == 0;
    m_monitor.reset(udev_monitor_new_from_netlink(m_udev.get(), hasUdev ? "udev" : "kernel"));
    sd_event_source* received = nullptr;
    const auto receive = [](sd_event_source*, int, std::uint32_t, void* data) {
        static_cast<DeviceWatch*>(data)->receive();
        return 0;
    };
    if (!m_monitor ||
        udev_monitor_filter_add_match_subsystem_devtype(m_monitor.get(), "input", nullptr) < 0 ||
        udev_monitor_enable_receiving(m_monitor.get()) < 0 ||
        sd_event_add_io(
            &m_loop, &received, udev_monitor_get_fd(m_monitor.get()), EPOLLIN, receive, this) < 0) {
        NSLog("Pallistrom: keyboards that are plugged in later go unnoticed");
    }
    m_received.reset(received);
}

void DeviceWatch::look() {
    const Owned<udev_enumerate> list(udev_enumerate_new(m_udev.get()));
    udev_enumerate_add_match_subsystem(list.get(), "input");
    udev_enumerate_scan_devices(list.get());
    for (udev_list_entry* entry = udev_enumerate_get_list_entry(list.get()); entry != nullptr;
         entry = udev_list_entry_get_next(entry)) {
        const Owned<udev_device> device(
            udev_device_new_from_syspath(m_udev.get(), udev_list_entry_get_name(entry)));
        if (device) {
            tell(*device);
        }
    }
}

void DeviceWatch::receive() {
    while (const auto device = Owned<udev_device>(udev_monitor_receive_device(m_monitor.get()))) {
        tell(*device);
    }
}

void DeviceWatch::tell(udev_device& device) {
    const std::string path(textOf(udev_device_get_devnode(&device)));
    if (!path.starts_with(eventNode)) {
        return;
    }
    if (textOf(udev_device_get_action(&device)) == "remove") {
        m_refused.erase(path);
        m_observer.lost(path);
    } else if (isOfUsualSeat(device)) {
        m_observer.found(path, textOf(udev_device_get_syspath(&device)));
    }
}

void DeviceWatch::waitForRights(const std::string& path) {
    m_refused.insert(path);
    if (m_rights) {
        return;
    }
    sd_event_source* rights = nullptr;
    const auto changed = [](sd_event_source*, const inotify_event* event, void* data) {
        if (event->len > 0) {
            static_cast<DeviceWatch*>(data)->rightsChanged(static_cast<const char*>(event->name));
        }
        return 0;
    };
    sd_event_add_inotify(&m_loop, &rights, std::string(folder).c_str(), IN_ATTRIB, changed, this);
    m_rights.reset(rights);
}

void DeviceWatch::rightsChanged(std::string_view name) {
    const std::string path = std::string(folder).append(name);
    if (m_refused.erase(path) == 0) {
        return;
    }
    const Owned<udev_device> device(
        udev_device_new_from_subsystem_sysname(m_udev.get(), "input", std::string(name).c_str()));
    if (device) {
        tell(*device);
    }
    if (m_refused.empty()) {
        m_rights.reset();
    }
}

} // namespace pallistrom
