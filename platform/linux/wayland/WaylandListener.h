// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

struct wl_registry;

namespace pallistrom {

/// What a compositor offers to its clients, by the name under which it can be asked for.
struct WaylandGlobal {
    std::uint32_t name = 0;
    std::string_view interface;
    std::uint32_t version = 0;
};

/// Who wants to hear from the compositor. Called on the main thread.
class WaylandListener {
public:
    WaylandListener() = default;
    WaylandListener(const WaylandListener&) = delete;
    WaylandListener& operator=(const WaylandListener&) = delete;
    virtual ~WaylandListener() = default;

    /// `global` is offered. The registry lives as long as the connection.
    virtual void globalCame(wl_registry* registry, const WaylandGlobal& global) = 0;
    virtual void globalGone(std::uint32_t name) = 0;

    /// All that had come in has been handled.
    virtual void served() = 0;

    /// The connection is about to end, and all objects made on it must go now.
    virtual void lost() = 0;
};

} // namespace pallistrom
