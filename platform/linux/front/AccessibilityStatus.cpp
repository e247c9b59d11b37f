// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/AccessibilityStatus.h"

#include "platform/linux/SessionPaths.h"
#include "platform/linux/bus/TheBus.h"

#include <utility>

namespace pallistrom {

namespace {

constexpr const char* service = "org.a11y.Bus";
constexpr const char* object = "/org/a11y/bus";
constexpr const char* properties = "org.freedesktop.DBus.Properties";

std::string sessionAddress() {
    const std::string address = SessionPaths::variable("DBUS_SESSION_BUS_ADDRESS");
    return address.empty() ? "unix:path=" + SessionPaths::variable("XDG_RUNTIME_DIR") + "/bus"
                           : address;
}

BusMessage quietCall(const BusConnection& bus, const char* interface, const char* member) {
    BusMessage call = bus.makeCall(service, object, interface, member);
    if (call) {
        sd_bus_message_set_auto_start(call.get(), 0);
    }
    return call;
}

} // namespace

AccessibilityStatus::AccessibilityStatus(std::function<void()> whenChanged)
    : m_whenChanged(std::move(whenChanged)),
      m_bus(std::make_unique<BusConnection>(sessionAddress())) {
    QObject::connect(m_bus.get(), &BusConnection::ready, m_bus.get(), [this] { busIsReady(); });
    // A session without its bus ends.
    QObject::connect(m_bus.get(), &BusConnection::lost, m_bus.get(), [this] { setAddress({}); });
}

void AccessibilityStatus::busIsReady() {
    m_matches = {m_bus->listen({.sender = TheBus::name,
                                .path = TheBus::object,
                                .interface = TheBus::name,
                                .member = "NameOwnerChanged",
                                .argument = service},
                               busHandler<&AccessibilityStatus::hearOwner>,
                               this),
                 m_bus->listen({.sender = service,
                                .path = object,
                                .interface = properties,
                                .member = "PropertiesChanged",
                                .argument = "org.a11y.Status"},
                               busHandler<&AccessibilityStatus::hearOwner>,
                               this)};
    ask();
}

void AccessibilityStatus::hearOwner(sd_bus_message* /*signal*/) {
    ask();
}

void AccessibilityStatus::ask() {
    BusMessage call = quietCall(*m_bus, properties, "Get");
    if (call) {
        sd_bus_message_append(call.get(), "ss", "org.a11y.Status", "IsEnabled");
    }
    m_question = m_bus->ask(std::move(call), busHandler<&AccessibilityStatus::hearIsEnabled>, this);
}

void AccessibilityStatus::hearIsEnabled(sd_bus_message* answer) {
    int isEnabled = 0;
    if (sd_bus_message_is_method_error(answer, nullptr) > 0 ||
        sd_bus_message_has_signature(answer, "v") <= 0 ||
        sd_bus_message_read(answer, "v", "b", &isEnabled) <= 0 || isEnabled == 0) {
        setAddress({});
        return;
    }
    m_question = m_bus->ask(quietCall(*m_bus, service, "GetAddress"),
                            busHandler<&AccessibilityStatus::hearAddress>,
                            this);
}

void AccessibilityStatus::hearAddress(sd_bus_message* answer) {
    const char* address = nullptr;
    const bool isAnswer = sd_bus_message_is_method_error(answer, nullptr) <= 0 &&
                          sd_bus_message_read(answer, "s", &address) > 0;
    setAddress(isAnswer ? address : "");
}

void AccessibilityStatus::setAddress(const std::string& address) {
    m_isKnown = true;
    if (std::exchange(m_address, address) != address) {
        m_whenChanged();
    }
}

} // namespace pallistrom
