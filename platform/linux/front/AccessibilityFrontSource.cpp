// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/AccessibilityFrontSource.h"

#include "platform/linux/bus/TheBus.h"

#include <cstdint>
#include <filesystem>
#include <system_error>
#include <utility>

namespace pallistrom {

namespace {

constexpr const char* root = "/org/a11y/atspi/accessible/root";
constexpr const char* accessible = "org.a11y.atspi.Accessible";
constexpr const char* windowEvent = "org.a11y.atspi.Event.Window";
constexpr const char* objectEvent = "org.a11y.atspi.Event.Object";
constexpr std::uint32_t terminalRole = 60;

std::string senderOf(sd_bus_message* message) {
    const char* const sender = sd_bus_message_get_sender(message);
    return sender == nullptr ? "" : sender;
}

bool isAnswer(sd_bus_message* answer) {
    return sd_bus_message_is_method_error(answer, nullptr) <= 0;
}

// Programs send only what somebody has registered for.
BusSlot registerFor(BusConnection& bus, const char* event) {
    BusMessage call = bus.makeCall("org.a11y.atspi.Registry",
                                   "/org/a11y/atspi/registry",
                                   "org.a11y.atspi.Registry",
                                   "RegisterEvent");
    if (call) {
        sd_bus_message_append(call.get(), "s", event);
    }
    return bus.ask(
        std::move(call),
        [](sd_bus_message* /*answer*/, void* /*self*/, sd_bus_error* /*error*/) { return 0; },
        nullptr);
}

std::string programOf(std::uint32_t process) {
    std::error_code error;
    const auto file =
        std::filesystem::read_symlink("/proc/" + std::to_string(process) + "/exe", error);
    return error ? "" : file.filename().string().substr(0, WindowClass::mostBytes);
}

} // namespace

AccessibilityFrontSource::AccessibilityFrontSource(std::function<void()> whenChanged)
    : m_whenChanged(std::move(whenChanged)) {}

void AccessibilityFrontSource::setWanted(Wanted wanted) {
    if (wanted == Wanted::No) {
        m_status.reset();
        end();
        m_report = FrontReport::unknown();
    } else if (!m_status) {
        m_status.emplace([this] { follow(); });
    }
}

void AccessibilityFrontSource::follow() {
    end();
    setReport(FrontReport::unknown());
    if (m_status && !m_status->address().empty()) {
        m_bus = std::make_unique<BusConnection>(m_status->address());
        QObject::connect(m_bus.get(), &BusConnection::ready, m_bus.get(), [this] { busIsReady(); });
        QObject::connect(m_bus.get(), &BusConnection::lost, m_bus.get(), [this] {
            end();
            setReport(FrontReport::unknown());
        });
    }
}

void AccessibilityFrontSource::end() {
    m_program.clear();
    m_nameQuestion.reset();
    m_roleQuestion.reset();
    m_endMatch.reset();
    m_registrations = {};
    m_matches = {};
    if (m_bus) {
        // It may be the one that is speaking.
        m_bus->disconnect();
        m_bus.release()->deleteLater();
    }
}

void AccessibilityFrontSource::busIsReady() {
    m_matches = {
        m_bus->listen({.interface = windowEvent, .member = "Activate"},
                      busHandler<&AccessibilityFrontSource::hearActivate>,
                      this),
        m_bus->listen({.interface = windowEvent, .member = "Deactivate"},
                      busHandler<&AccessibilityFrontSource::hearDeactivate>,
                      this),
        m_bus->listen({.interface = objectEvent, .member = "StateChanged", .argument = "focused"},
                      busHandler<&AccessibilityFrontSource::hearFocus>,
                      this)};
    m_registrations = {registerFor(*m_bus, "window:activate"),
                       registerFor(*m_bus, "window:deactivate"),
                       registerFor(*m_bus, "object:state-changed:focused")};
}

void AccessibilityFrontSource::hearActivate(sd_bus_message* signal) {
    bringToFront(senderOf(signal));
}

// What comes to the front next may be a program that tells nothing.
void AccessibilityFrontSource::hearDeactivate(sd_bus_message* signal) {
    if (senderOf(signal) == m_program) {
        m_program.clear();
        m_nameQuestion.reset();
        m_roleQuestion.reset();
        setReport(FrontReport::unknown());
    }
}

void AccessibilityFrontSource::hearFocus(sd_bus_message* signal) {
    const char* state = nullptr;
    std::int32_t isOn = 0;
    const std::string program = senderOf(signal);
    const char* const object = sd_bus_message_get_path(signal);
    if (sd_bus_message_read(signal, "si", &state, &isOn) <= 0 || isOn == 0 || object == nullptr) {
        return;
    }
    if (program != m_program) {
        bringToFront(program);
    }
    m_roleQuestion = m_bus->ask(m_bus->makeCall(program.c_str(), object, accessible, "GetRole"),
                                busHandler<&AccessibilityFrontSource::hearRole>,
                                this);
}

void AccessibilityFrontSource::bringToFront(const std::string& program) {
    if (program.empty() || program == m_program) {
        return;
    }
    m_program = program;
    m_found = FrontReport::of({});
    m_roleQuestion.reset();
    m_endMatch = m_bus->listen({.sender = TheBus::name,
                                .interface = TheBus::name,
                                .member = "NameOwnerChanged",
                                .argument = m_program.c_str()},
                               busHandler<&AccessibilityFrontSource::hearEnd>,
                               this);
    BusMessage call =
        m_bus->makeCall(m_program.c_str(), root, "org.freedesktop.DBus.Properties", "Get");
    if (call) {
        sd_bus_message_append(call.get(), "ss", accessible, "Name");
    }
    m_nameQuestion =
        m_bus->ask(std::move(call), busHandler<&AccessibilityFrontSource::hearName>, this);
}

void AccessibilityFrontSource::hearEnd(sd_bus_message* signal) {
    if (!isFrom(signal, TheBus::name)) {
        return;
    }
    m_program.clear();
    m_nameQuestion.reset();
    m_roleQuestion.reset();
    setReport(FrontReport::unknown());
}

void AccessibilityFrontSource::hearName(sd_bus_message* answer) {
    const char* name = nullptr;
    if (isAnswer(answer) && sd_bus_message_has_signature(answer, "v") > 0 &&
        sd_bus_message_read(answer, "v", "s", &name) > 0) {
        m_found.window.instance = std::string(name).substr(0, WindowClass::mostBytes);
    }
    BusMessage call =
        m_bus->makeCall(TheBus::name, TheBus::object, TheBus::name, "GetConnectionUnixProcessID");
    if (call) {
        sd_bus_message_append(call.get(), "s", m_program.c_str());
    }
    m_nameQuestion =
        m_bus->ask(std::move(call), busHandler<&AccessibilityFrontSource::hearProcess>, this);
}

void AccessibilityFrontSource::hearProcess(sd_bus_message* answer) {
    std::uint32_t process = 0;
    if (isAnswer(answer) && sd_bus_message_read(answer, "u", &process) > 0) {
        m_found.window.name = programOf(process);
    }
    m_nameQuestion.reset();
    setReport(m_found);
}

void AccessibilityFrontSource::hearRole(sd_bus_message* answer) {
    std::uint32_t role = 0;
    m_found.isInTerminal =
        isAnswer(answer) && sd_bus_message_read(answer, "u", &role) > 0 && role == terminalRole;
    m_roleQuestion.reset();
    if (!m_nameQuestion) {
        setReport(m_found);
    }
}

void AccessibilityFrontSource::setReport(const FrontReport& report) {
    if (report != m_report) {
        m_report = report;
        m_whenChanged();
    }
}

} // namespace pallistrom
