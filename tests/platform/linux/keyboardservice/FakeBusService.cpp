// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FakeBusService.h"

#include "pallistrom/Names.h"

namespace pallistrom {

namespace {

constexpr const char* interface = Names::keyboardBusName.data();
constexpr const char* object = Names::keyboardObject.data();

void appendNumber(sd_bus_message* message, const char* type, std::uint32_t number) {
    if (*type == 's') {
        sd_bus_message_append(message, "s", std::to_string(number).c_str());
    } else {
        sd_bus_message_append(message, "u", number);
    }
}

} // namespace

FakeBusService::FakeBusService(Answers first) : answers(first) {
    QObject::connect(&m_bus, &BusConnection::ready, &m_bus, [this] { busIsReady(); });
}

void FakeBusService::busIsReady() {
    sd_bus_slot* slot = nullptr;
    sd_bus_add_object(
        m_bus.get(),
        &slot,
        object,
        [](sd_bus_message* message, void* self, sd_bus_error* /*error*/) {
            static_cast<FakeBusService*>(self)->handle(message);
            return 1;
        },
        this);
    m_object.reset(slot);
    sd_bus_request_name_async(
        m_bus.get(),
        &slot,
        interface,
        0,
        [](sd_bus_message* message, void* self, sd_bus_error* /*error*/) {
            static_cast<FakeBusService*>(self)->hasName(
                sd_bus_message_is_method_error(message, nullptr) == 0);
            return 1;
        },
        this);
    m_name.reset(slot);
    m_owners = m_bus.listen(
        {"org.freedesktop.DBus", nullptr, "org.freedesktop.DBus", "NameOwnerChanged"},
        [](sd_bus_message* message, void* self, sd_bus_error* /*error*/) {
            static_cast<FakeBusService*>(self)->ownerChanged(message);
            return 0;
        },
        this);
}

void FakeBusService::hasName(bool isOurs) {
    m_isThere = isOurs;
    if (tell) {
        tell(isOurs ? "ready" : "the name is taken");
    }
}

void FakeBusService::ownerChanged(sd_bus_message* signal) {
    const char* name = nullptr;
    if (sd_bus_message_read(signal, "sss", &name, nullptr, nullptr) > 0 && tell &&
        std::erase(m_listeners, name) > 0) {
        tell("gone");
    }
}

void FakeBusService::note(std::string entry) {
    m_asked.push_back(std::move(entry));
    if (tell) {
        tell(m_asked.back());
    }
}

void FakeBusService::handle(sd_bus_message* message) {
    const std::string member = sd_bus_message_get_member(message);
    note(member + argumentsOf(message));
    if (answers.refusals > 0) {
        --answers.refusals;
        sd_bus_reply_method_errorf(message, "org.freedesktop.DBus.Error.LimitsExceeded", "no");
        return;
    }
    if (answers.hangs || handleQuestion(message, member)) {
        return;
    }
    if (member == "SetTap" && answers.refusesTap) {
        sd_bus_reply_method_errorf(message, "org.freedesktop.DBus.Error.AccessDenied", "no");
    } else if (member == "SetSession" && !answers.knowsSessions) {
        sd_bus_reply_method_errorf(message, "org.freedesktop.DBus.Error.UnknownMethod", "what?");
    } else {
        sd_bus_reply_method_return(message, nullptr);
    }
}

bool FakeBusService::handleQuestion(sd_bus_message* message, const std::string& member) {
    if (member == "Get") {
        sd_bus_message* made = nullptr;
        sd_bus_message_new_method_return(message, &made);
        const BusMessage answer(made);
        sd_bus_message_open_container(made, 'v', answers.type);
        appendNumber(made, answers.type, answers.version);
        sd_bus_message_close_container(made);
        sd_bus_send(nullptr, made, nullptr);
    } else if (member == "GetAccess") {
        m_listeners.emplace_back(sd_bus_message_get_sender(message));
        reply(message, answers.access);
    } else if (member == "RequestGrant" && answers.keepsGrantOpen) {
        m_openGrant.reset(sd_bus_message_ref(message));
    } else if (member == "RequestGrant") {
        reply(message, answers.grant);
    } else {
        return false;
    }
    return true;
}

void FakeBusService::reply(sd_bus_message* message, std::uint32_t number) const {
    sd_bus_message* made = nullptr;
    sd_bus_message_new_method_return(message, &made);
    const BusMessage answer(made);
    appendNumber(made, answers.type, number);
    sd_bus_send(nullptr, made, nullptr);
}

void FakeBusService::changeAccess(std::uint32_t access) {
    answers.access = access;
    for (const std::string& listener : m_listeners) {
        sd_bus_message* made = nullptr;
        sd_bus_message_new_signal(m_bus.get(), &made, object, interface, "AccessChanged");
        const BusMessage signal(made);
        appendNumber(made, answers.type, access);
        sd_bus_message_set_destination(made, listener.c_str());
        sd_bus_send(nullptr, made, nullptr);
    }
}

void FakeBusService::closeGrant(std::uint32_t answer) {
    reply(m_openGrant.get(), answer);
    m_openGrant.reset();
}

std::string FakeBusService::argumentsOf(sd_bus_message* message) {
    const std::string signature = sd_bus_message_get_signature(message, 1);
    std::uint32_t number = 0;
    std::uint8_t byte = 0;
    int truth = 0;
    std::uint16_t code = 0;
    const char* word = nullptr;
    std::string text;
    if (signature == "b" && sd_bus_message_read(message, "b", &truth) > 0) {
        text = truth != 0 ? " true" : " false";
    } else if (signature == "u" && sd_bus_message_read(message, "u", &number) > 0) {
        text = " " + std::to_string(number);
    } else if (signature == "y" && sd_bus_message_read(message, "y", &byte) > 0) {
        text = " " + std::to_string(byte);
    } else if (signature == "s" && sd_bus_message_read(message, "s", &word) > 0) {
        text = std::string(" ") + word;
    } else if (signature == "a(qy)" && sd_bus_message_enter_container(message, 'a', "(qy)") > 0) {
        while (sd_bus_message_read(message, "(qy)", &code, &byte) > 0) {
            text += " " + std::to_string(code) + ":" + std::to_string(byte);
        }
    }
    return text;
}

} // namespace pallistrom
