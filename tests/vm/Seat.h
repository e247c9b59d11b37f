// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Deadline.h"
#include "FileDescriptor.h"
#include "KeyScript.h"
#include "SeatKeyboard.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace pallistrom::vm {

/// What a session sees of the keyboards of one name, plugged in already or later: those that are
/// grabbed send it nothing, those that the service has made in their place do. Reads on a thread of
/// its own.
class Seat {
public:
    using Events = std::vector<SeenEvent>;

    explicit Seat(std::string name);
    Seat(const Seat&) = delete;
    Seat& operator=(const Seat&) = delete;
    ~Seat();

    /// Waits until `isEnough` holds of all that was seen, and returns that, in the order of time.
    [[nodiscard]] Events waitFor(const std::function<bool(const Events&)>& isEnough,
                                 Deadline deadline);

    [[nodiscard]] Events seen();

    /// Forgets what was seen.
    void clear();

    /// The devices that are there now.
    [[nodiscard]] std::vector<std::filesystem::path> nodes();

    /// The keys that the session takes for pressed now, forgotten or not, each with the device on
    /// which it is; nothing if none is.
    [[nodiscard]] std::string keysDown();

    /// Whether events have gone by unread: then nothing of what was seen means anything.
    [[nodiscard]] bool hasMissedSome();

private:
    void run();
    void readDevices();
    void openNewDevices();

    std::string m_name;
    FileDescriptor m_folderWatch;
    FileDescriptor m_stop;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<SeatKeyboard> m_devices;
    Events m_events;
    bool m_hasMissedSome = false;
    std::thread m_thread;
};

/// Returns the presses and releases among `events`. A session repeats keys by itself.
[[nodiscard]] std::vector<KeyScript::Event> keysOf(const Seat::Events& events);

} // namespace pallistrom::vm
