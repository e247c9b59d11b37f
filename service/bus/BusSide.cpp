// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/bus/BusSide.h"

#include "pallistrom/Names.h"
#include "service/bus/openSystemBus.h"

#include <utility>

namespace pallistrom {

namespace {

/// A lock screen goes before whatever programs want, and still after every device.
constexpr int aheadOfCallers = 10;

} // namespace

BusSide::BusSide(sd_event* loop, int priority, Receiver receiver)
    : m_loop{loop}, m_priority{priority}, m_receiver{std::move(receiver)} {}

BusSide::~BusSide() = default;

int BusSide::open() {
    const auto lost = [this] {
        m_receiver.lost("the connection to the system bus is over");
    };
    m_system =
        std::make_unique<SystemSide>(m_loop,
                                     m_priority - aheadOfCallers,
                                     SystemSide::Receiver{.loginChanged =
                                                              [this](const LoginState& login) {
                                                                  m_receiver.loginChanged(login);
                                                                  takeName();
                                                              },
                                                          .lost = lost});
    const int result = openSystemBus(m_bus);
    if (result < 0) {
        return result;
    }
    m_guard = std::make_unique<BusGuard>(m_loop, m_bus.get(), m_priority, lost);
    const int served = serve();
    return served < 0 ? served : m_system->open();
}

int BusSide::serve() {
    m_callers = std::make_unique<Callers>(m_bus.get(),
                                          Callers::Receiver{.arrived = m_receiver.arrived,
                                                            .called = m_receiver.called,
                                                            .vanished = m_receiver.vanished});
    m_object =
        std::make_unique<KeyboardObject>([this](const std::string& caller, PendingCall call) {
            m_callers->take(caller, std::move(call));
        });
    const int result = m_guard->start();
    return result < 0 ? result : m_object->publish(m_bus.get());
}

void BusSide::takeName() {
    if (m_nameQuestion) {
        return;
    }
    const int result = into(m_nameQuestion, [this](sd_bus_slot** slot) {
        return sd_bus_request_name_async(
            m_bus.get(), slot, Names::keyboardBusName.data(), 0, nameTaken, this);
    });
    if (result < 0) {
        m_receiver.lost("the system bus takes no request");
    }
}

int BusSide::nameTaken(sd_bus_message* answer, void* side, sd_bus_error* /*error*/) {
    constexpr std::uint32_t isOwner = 1;
    auto& self = *static_cast<BusSide*>(side);
    std::uint32_t result = 0;
    if (sd_bus_message_is_method_error(answer, nullptr) == 0 &&
        sd_bus_message_read(answer, "u", &result) > 0 && result == isOwner) {
        self.m_receiver.ready();
    } else {
        self.m_receiver.lost("the service may not have its name on the system bus");
    }
    return 1;
}

void BusSide::tellAccess(const std::string& caller, KeyboardInterface::Access access) const {
    OwnedMessage message;
    const int result = into(message, [this](sd_bus_message** made) {
        return sd_bus_message_new_signal(m_bus.get(),
                                         made,
                                         Names::keyboardObject.data(),
                                         Names::keyboardBusName.data(),
                                         "AccessChanged");
    });
    // To a caller that has gone, or over a connection that is over: there is nobody to tell.
    if (result >= 0 &&
        sd_bus_message_append(message.get(), "u", static_cast<std::uint32_t>(access)) >= 0) {
        static_cast<void>(sd_bus_send_to(m_bus.get(), message.get(), caller.c_str(), nullptr));
    }
}

} // namespace pallistrom
