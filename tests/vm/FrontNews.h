// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Deadline.h"
#include "FileDescriptor.h"
#include "platform/linux/front/FrontApplication.h"

#include <systemd/sd-bus.h>

#include <condition_variable>
#include <cstddef>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace pallistrom::vm {

/// Listens on the system bus to what the keyboard service is told of the application in front.
/// Reads on a thread of its own. Throws std::runtime_error where the bus does not let it.
class FrontNews {
public:
    struct Item {
        FrontApplication kind;
        Deadline::Clock::time_point known; ///< from when on the service goes by it, at the latest
    };

    FrontNews();
    FrontNews(const FrontNews&) = delete;
    FrontNews& operator=(const FrontNews&) = delete;
    ~FrontNews();

    /// Waits until there have been so many, and returns all.
    [[nodiscard]] std::vector<Item> waitFor(std::size_t count, Deadline deadline);

private:
    struct Close {
        void operator()(sd_bus* bus) const { sd_bus_flush_close_unref(bus); }
    };

    using Bus = std::unique_ptr<sd_bus, Close>;

    static Bus connect();
    void run();
    void take(sd_bus_message* message);

    Bus m_monitor;
    Bus m_questions;
    FileDescriptor m_stop;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<Item> m_items;
    std::thread m_thread;
};

} // namespace pallistrom::vm
