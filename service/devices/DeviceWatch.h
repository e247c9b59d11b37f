// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/devices/Handles.h"

#include <set>
#include <string>
#include <string_view>

namespace pallistrom {

/// Learns which input devices there are, from udev, and that rights to one have come later.
class DeviceWatch {
public:
    class Observer {
    public:
        Observer() = default;
        Observer(const Observer&) = delete;
        Observer& operator=(const Observer&) = delete;
        virtual ~Observer() = default;

        /// The device with the event node `path` is there, or has changed. `place` is where the
        /// system has it below /sys.
        virtual void found(const std::string& path, std::string_view place) = 0;

        virtual void lost(const std::string& path) = 0;
    };

    /// Both outlive the watch.
    DeviceWatch(sd_event& loop, Observer& observer) : m_loop(loop), m_observer(observer) {}

    /// Tells of changes from now on. More than once is once.
    void start();

    /// Tells of all devices that are there. Once it has been started.
    void look();

    /// `path` may not be opened: has it told of again once its rights have changed.
    void waitForRights(const std::string& path);

private:
    void receive();
    void tell(udev_device& device);
    void rightsChanged(std::string_view name);

    sd_event& m_loop;
    Observer& m_observer;
    Owned<udev> m_udev;
    Owned<udev_monitor> m_monitor;
    OwnedEventSource m_received;
    OwnedEventSource m_rights; ///< only while there is something to wait for
    std::set<std::string> m_refused;
};

} // namespace pallistrom
