// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/SystemLog.h"

#include "platform/linux/OwnedDescriptor.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>

namespace pallistrom::SystemLog {

namespace {

// A notice of a user's program, as RFC 3164 numbers them.
constexpr std::string_view priority = "<13>";

} // namespace

std::string nameOfThisProcess() {
    return std::string(program_invocation_short_name).append("[") + std::to_string(getpid()) +
           "]: ";
}

// Each line finds its own way: the log may have been started anew since the last one.
bool send(std::string_view socket, std::string_view line) {
    sockaddr_un address{};
    if (socket.size() >= sizeof(address.sun_path)) {
        return false;
    }
    address.sun_family = AF_UNIX;
    socket.copy(&address.sun_path[0], socket.size());
    const std::string message = std::string(priority).append(nameOfThisProcess()).append(line);
    const OwnedDescriptor sender(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    return sender.isOpen() && sendto(sender.get(),
                                     message.data(),
                                     message.size(),
                                     MSG_DONTWAIT | MSG_NOSIGNAL,
                                     // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast)
                                     reinterpret_cast<const sockaddr*>(&address),
                                     sizeof(address)) >= 0;
}

} // namespace pallistrom::SystemLog
