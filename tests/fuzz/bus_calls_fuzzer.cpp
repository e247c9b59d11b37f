// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keyboardservice/KeyboardInterface.h"
#include "service/bus/Call.h"
#include "service/bus/Handles.h"

#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <type_traits>

namespace {

using namespace pallistrom;

/// A message of the bus, as it is written to a socket: all numbers with the lowest byte first.
class RawMessage {
public:
    void number(std::uint32_t value) {
        align(4);
        for (unsigned shift = 0; shift < 32; shift += 8) {
            m_bytes += static_cast<char>((value >> shift) & 0xffU);
        }
    }

    void byte(unsigned value) { m_bytes += static_cast<char>(value); }

    void text(std::string_view value) {
        number(static_cast<std::uint32_t>(value.size()));
        m_bytes.append(value) += '\0';
    }

    void signature(std::string_view value) {
        byte(static_cast<unsigned>(value.size()));
        m_bytes.append(value) += '\0';
    }

    /// The start of a header field whose value is of the type `kind`.
    void field(unsigned number, std::string_view kind) {
        align(8);
        byte(number);
        signature(kind);
    }

    void align(std::size_t to) { m_bytes.resize((m_bytes.size() + to - 1) / to * to); }

    std::string m_bytes;
};

constexpr std::array<std::string_view, 9> members{"GetAccess",
                                                  "RequestGrant",
                                                  "WithdrawGrant",
                                                  "EndPanic",
                                                  "SetTap",
                                                  "SetSwitches",
                                                  "SetModifiers",
                                                  "SetFrontApplication",
                                                  "SetSession"};

std::string callWith(std::string_view member, std::string_view signature, std::string_view body) {
    RawMessage fields;
    fields.field(1, "o");
    fields.text("/o");
    fields.field(3, "s");
    fields.text(member);
    fields.field(8, "g");
    fields.signature(signature);

    RawMessage message;
    message.m_bytes = std::string{"l\1\0\1", 4};
    message.number(static_cast<std::uint32_t>(body.size()));
    message.number(1);
    message.number(static_cast<std::uint32_t>(fields.m_bytes.size()));
    message.m_bytes += fields.m_bytes;
    message.align(8);
    message.m_bytes += body;
    return message.m_bytes;
}

void check(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void checkCall(const Call& call) {
    if (const auto* const set = std::get_if<Calls::SetSwitches>(&call)) {
        check(set->switches < 16);
    } else if (const auto* const session = std::get_if<Calls::SetSession>(&call)) {
        check(KeyboardInterface::isSessionName(session->id));
    } else if (const auto* const front = std::get_if<Calls::SetFrontApplication>(&call)) {
        check(front->kind <= FrontApplication::EditsBySelection);
    } else if (const auto* const modifiers = std::get_if<Calls::SetModifiers>(&call)) {
        for (EvdevCode code = 0; code <= ModifierTable::highestCode; ++code) {
            check(modifiers->modifiers.modifierOf(code) <= Modifier::Level3);
        }
    }
}

int read(sd_bus_message* message, void* /*data*/, sd_bus_error* /*error*/) {
    if (const auto call = readCall(message)) {
        checkCall(*call);
    }
    return 1;
}

/// A bus of two, with this program at both ends.
OwnedBus serve(int socket) {
    OwnedBus bus;
    check(into(bus, [](sd_bus** made) { return sd_bus_new(made); }) >= 0);
    sd_id128_t id{};
    id.bytes[0] = 1;
    check(sd_bus_set_fd(bus.get(), socket, socket) >= 0);
    check(sd_bus_set_server(bus.get(), 1, id) >= 0);
    check(sd_bus_set_anonymous(bus.get(), 1) >= 0);
    check(sd_bus_negotiate_fds(bus.get(), 0) >= 0);
    check(sd_bus_add_filter(bus.get(), nullptr, read, nullptr) >= 0);
    check(sd_bus_start(bus.get()) >= 0);
    return bus;
}

} // namespace

// The first byte chooses the method; 9 and above stands for bytes that need be no message at all.
// What follows up to a zero is the signature, the rest the arguments.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0 || size > 4096) {
        return 0;
    }
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes are bytes
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    const std::size_t method = static_cast<unsigned char>(rest.front());
    rest.remove_prefix(1);
    std::string sent{"\0AUTH ANONYMOUS\r\nDATA\r\nBEGIN\r\n", 30};
    if (method < members.size()) {
        const auto end = std::min({rest.find('\0'), rest.size(), std::size_t{255}});
        const auto signature = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        sent += callWith(members.at(method), signature, rest);
    } else {
        sent += rest;
    }

    std::array<int, 2> ends{};
    check(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends.data()) == 0);
    {
        const OwnedBus bus = serve(ends[0]); // Closes its end.
        check(write(ends[1], sent.data(), sent.size()) == static_cast<ssize_t>(sent.size()));
        shutdown(ends[1], SHUT_WR);
        // Until nothing is left to do, or the library has seen enough.
        while (sd_bus_process(bus.get(), nullptr) > 0) {
        }
    }
    close(ends[1]);
    return 0;
}
