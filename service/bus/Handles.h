// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <systemd/sd-bus.h>
#include <systemd/sd-event.h>

#include <memory>

/// Owners of what libsystemd hands out. Each pointer that it gives goes into one of these at once.
namespace pallistrom {

namespace detail {

struct Unreference {
    void operator()(sd_bus_slot* slot) const { sd_bus_slot_unref(slot); }

    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }

    void operator()(sd_event* loop) const { sd_event_unref(loop); }

    // Switched off first: a source that is being served holds a reference to itself.
    void operator()(sd_event_source* source) const { sd_event_source_disable_unref(source); }
};

struct CloseBus {
    // Unwritten messages are lost: to write them first could take as long as the bus likes.
    void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
};

} // namespace detail

using OwnedBus = std::unique_ptr<sd_bus, detail::CloseBus>;
using OwnedSlot = std::unique_ptr<sd_bus_slot, detail::Unreference>;
using OwnedMessage = std::unique_ptr<sd_bus_message, detail::Unreference>;
using OwnedEvent = std::unique_ptr<sd_event, detail::Unreference>;
using OwnedSource = std::unique_ptr<sd_event_source, detail::Unreference>;

/// Takes another reference.
[[nodiscard]] inline OwnedMessage hold(sd_bus_message* message) {
    return OwnedMessage{sd_bus_message_ref(message)};
}

/// Returns a slot, or what else is given by way of an argument, as its owner.
///
///     int error = into(m_slot, [&](sd_bus_slot** slot) { return sd_bus_add_match(..., slot, ...);
///     });
template<typename Owner, typename Make>
[[nodiscard]] int into(Owner& owner, const Make& make) {
    typename Owner::pointer made = nullptr;
    const int result = make(&made);
    owner.reset(made);
    return result;
}

} // namespace pallistrom
