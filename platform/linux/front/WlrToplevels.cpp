// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/WlrToplevels.h"

#include "platform/linux/wayland/ForeignToplevels.h"

#include <wayland-client-protocol.h>

#include <utility>

namespace pallistrom {

using namespace ForeignToplevels::Wlr;

WlrToplevels::WlrToplevels(wl_registry* registry, std::uint32_t name)
    : m_manager(static_cast<wl_proxy*>(wl_registry_bind(registry, name, &manager, version))) {
    wl_proxy_add_dispatcher(m_manager.get(), managerEvent, this, nullptr);
}

int WlrToplevels::managerEvent(const void* self,
                               void* /*target*/,
                               std::uint32_t event,
                               const wl_message* /*message*/,
                               wl_argument* arguments) {
    if (event == ManagerToplevel) {
        owner<WlrToplevels>(self).add(WaylandProxy(reinterpret_cast<wl_proxy*>(arguments[0].o)));
    } else {
        owner<WlrToplevels>(self).finish();
    }
    return 0;
}

int WlrToplevels::handleEvent(const void* self,
                              void* target,
                              std::uint32_t event,
                              const wl_message* /*message*/,
                              wl_argument* arguments) {
    owner<WlrToplevels>(self).handle(
        wl_proxy_get_id(static_cast<wl_proxy*>(target)), event, arguments);
    return 0;
}

void WlrToplevels::add(WaylandProxy handle) {
    const ToplevelList::Id id = wl_proxy_get_id(handle.get());
    wl_proxy_add_dispatcher(handle.get(), handleEvent, this, nullptr);
    // What there is no room for is listened to all the same, until it closes.
    static_cast<void>(list().add(id));
    m_handles.insert_or_assign(id, std::move(handle));
}

void WlrToplevels::handle(ToplevelList::Id id, std::uint32_t event, const wl_argument* arguments) {
    switch (event) {
    case HandleAppId:
        list().setApplication(id, arguments[0].s);
        return;
    case HandleState:
        list().setActivated(id, ForeignToplevels::isActivated(*arguments[0].a));
        return;
    case HandleDone:
        list().commit(id);
        return;
    case HandleClosed:
        remove(id);
        return;
    default:
        return;
    }
}

void WlrToplevels::remove(ToplevelList::Id id) {
    list().remove(id);
    if (const auto found = m_handles.find(id); found != m_handles.end()) {
        wl_proxy_marshal_flags(
            found->second.release(), HandleDestroy, nullptr, version, WL_MARSHAL_FLAG_DESTROY);
        m_handles.erase(found);
    }
}

} // namespace pallistrom
