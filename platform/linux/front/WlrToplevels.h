// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/ToplevelProtocol.h"
#include "platform/linux/wayland/WaylandProxy.h"

#include <wayland-client-core.h>

#include <map>

namespace pallistrom {

/// Windows by zwlr_foreign_toplevel_manager_v1.
class WlrToplevels final : public ToplevelProtocol {
public:
    WlrToplevels(wl_registry* registry, std::uint32_t name);

private:
    static int managerEvent(const void* self,
                            void* target,
                            std::uint32_t event,
                            const wl_message* message,
                            wl_argument* arguments);
    static int handleEvent(const void* self,
                           void* target,
                           std::uint32_t event,
                           const wl_message* message,
                           wl_argument* arguments);

    void add(WaylandProxy handle);
    void handle(ToplevelList::Id id, std::uint32_t event, const wl_argument* arguments);
    void remove(ToplevelList::Id id);

    WaylandProxy m_manager;
    std::map<ToplevelList::Id, WaylandProxy> m_handles;
};

} // namespace pallistrom
