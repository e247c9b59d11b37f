// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/CosmicToplevels.h"

#include "platform/linux/wayland/ForeignToplevels.h"

#include <wayland-client-protocol.h>

#include <utility>

namespace pallistrom {

namespace Cosmic = ForeignToplevels::Cosmic;
namespace List = ForeignToplevels::List;

static void destroy(WaylandProxy proxy, std::uint32_t request) {
    wl_proxy* const object = proxy.release();
    wl_proxy_marshal_flags(
        object, request, nullptr, wl_proxy_get_version(object), WL_MARSHAL_FLAG_DESTROY);
}

CosmicToplevels::CosmicToplevels(wl_registry* registry, std::uint32_t list, std::uint32_t info)
    : m_listed(
          static_cast<wl_proxy*>(wl_registry_bind(registry, list, &List::list, List::version))),
      m_info(static_cast<wl_proxy*>(
          wl_registry_bind(registry, info, &Cosmic::info, Cosmic::version))) {
    wl_proxy_add_dispatcher(m_listed.get(), listEvent, this, nullptr);
    wl_proxy_add_dispatcher(m_info.get(), infoEvent, this, nullptr);
}

int CosmicToplevels::listEvent(const void* self,
                               void* /*target*/,
                               std::uint32_t event,
                               const wl_message* /*message*/,
                               wl_argument* arguments) {
    if (event == List::ListToplevel) {
        owner<CosmicToplevels>(self).add(WaylandProxy(reinterpret_cast<wl_proxy*>(arguments[0].o)));
    } else {
        owner<CosmicToplevels>(self).finish();
    }
    return 0;
}

int CosmicToplevels::infoEvent(const void* self,
                               void* /*target*/,
                               std::uint32_t event,
                               const wl_message* /*message*/,
                               wl_argument* arguments) {
    switch (event) {
    case Cosmic::InfoToplevel:
        // Not said in this version.
        WaylandProxy(reinterpret_cast<wl_proxy*>(arguments[0].o)).reset();
        return 0;
    case Cosmic::InfoDone:
        owner<CosmicToplevels>(self).list().commitAll();
        return 0;
    default:
        owner<CosmicToplevels>(self).finish();
        return 0;
    }
}

int CosmicToplevels::handleEvent(const void* self,
                                 void* target,
                                 std::uint32_t event,
                                 const wl_message* /*message*/,
                                 wl_argument* arguments) {
    owner<CosmicToplevels>(self).handle(
        wl_proxy_get_id(static_cast<wl_proxy*>(target)), event, arguments);
    return 0;
}

int CosmicToplevels::statesEvent(const void* self,
                                 void* target,
                                 std::uint32_t event,
                                 const wl_message* /*message*/,
                                 wl_argument* arguments) {
    if (event == Cosmic::HandleState) {
        auto* const states = static_cast<wl_proxy*>(target);
        const auto id = static_cast<ToplevelList::Id>(
            reinterpret_cast<std::uintptr_t>(wl_proxy_get_user_data(states)));
        owner<CosmicToplevels>(self).list().setActivated(
            id, ForeignToplevels::isActivated(*arguments[0].a));
    }
    return 0;
}

void CosmicToplevels::add(WaylandProxy handle) {
    const ToplevelList::Id id = wl_proxy_get_id(handle.get());
    wl_proxy_add_dispatcher(handle.get(), handleEvent, this, nullptr);
    WaylandProxy states(wl_proxy_marshal_flags(m_info.get(),
                                               Cosmic::InfoGetHandle,
                                               &Cosmic::handle,
                                               Cosmic::version,
                                               0,
                                               nullptr,
                                               handle.get()));
    // The event comes with what is given here, which is no address but the number itself.
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    auto* const number = reinterpret_cast<void*>(std::uintptr_t{id});
    wl_proxy_add_dispatcher(states.get(), statesEvent, this, number);
    // What there is no room for is listened to all the same, until it closes.
    static_cast<void>(list().add(id));
    m_handles.insert_or_assign(id, Handles{std::move(handle), std::move(states)});
}

void CosmicToplevels::handle(ToplevelList::Id id,
                             std::uint32_t event,
                             const wl_argument* arguments) {
    switch (event) {
    case List::HandleAppId:
        list().setApplication(id, arguments[0].s);
        return;
    case List::HandleDone:
        list().commit(id);
        return;
    case List::HandleClosed:
        remove(id);
        return;
    default:
        return;
    }
}

void CosmicToplevels::remove(ToplevelList::Id id) {
    list().remove(id);
    if (const auto found = m_handles.find(id); found != m_handles.end()) {
        destroy(std::move(found->second.states), Cosmic::HandleDestroy);
        destroy(std::move(found->second.listed), List::HandleDestroy);
        m_handles.erase(found);
    }
}

} // namespace pallistrom
