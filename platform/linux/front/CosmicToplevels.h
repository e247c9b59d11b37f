// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/ToplevelProtocol.h"
#include "platform/linux/wayland/WaylandProxy.h"

#include <wayland-client-core.h>

#include <map>

namespace pallistrom {

/// Windows by ext_foreign_toplevel_list_v1, which has their names, and zcosmic_toplevel_info_v1,
/// which has their states.
class CosmicToplevels final : public ToplevelProtocol {
public:
    CosmicToplevels(wl_registry* registry, std::uint32_t list, std::uint32_t info);

private:
    /// A window has two objects. It is known by the number of the first.
    struct Handles {
        WaylandProxy listed;
        WaylandProxy states;
    };

    static int listEvent(const void* self,
                         void* target,
                         std::uint32_t event,
                         const wl_message* message,
                         wl_argument* arguments);
    static int infoEvent(const void* self,
                         void* target,
                         std::uint32_t event,
                         const wl_message* message,
                         wl_argument* arguments);
    static int handleEvent(const void* self,
                           void* target,
                           std::uint32_t event,
                           const wl_message* message,
                           wl_argument* arguments);
    static int statesEvent(const void* self,
                           void* target,
                           std::uint32_t event,
                           const wl_message* message,
                           wl_argument* arguments);

    void add(WaylandProxy handle);
    void handle(ToplevelList::Id id, std::uint32_t event, const wl_argument* arguments);
    void remove(ToplevelList::Id id);

    WaylandProxy m_listed;
    WaylandProxy m_info;
    std::map<ToplevelList::Id, Handles> m_handles;
};

} // namespace pallistrom
