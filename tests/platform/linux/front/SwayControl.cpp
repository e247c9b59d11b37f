// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "SwayControl.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <stdexcept>

namespace pallistrom {

namespace {

constexpr std::string_view magic = "i3-ipc";
constexpr std::uint32_t runCommand = 0;
constexpr std::uint32_t getTree = 4;

FileDescriptor connectIn(const std::filesystem::path& folder) {
    for (const auto& entry : std::filesystem::directory_iterator{folder}) {
        const std::string path = entry.path();
        sockaddr_un address{};
        if (path.find("sway-ipc") == std::string::npos || path.size() >= sizeof(address.sun_path)) {
            continue;
        }
        address.sun_family = AF_UNIX;
        std::memcpy(&address.sun_path, path.c_str(), path.size());
        FileDescriptor socket{::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)};
        if (connect(socket.get(),
                    reinterpret_cast<const sockaddr*>(&address), // NOLINT: as connect(2) wants it
                    sizeof(address)) == 0) {
            return socket;
        }
    }
    throw std::runtime_error{"sway has no socket in " + folder.string()};
}

void readAll(int descriptor, char* at, std::size_t size) {
    while (size > 0) {
        const ssize_t count = read(descriptor, at, size);
        if (count <= 0) {
            throw std::runtime_error{"sway does not answer"};
        }
        at += count;
        size -= static_cast<std::size_t>(count);
    }
}

} // namespace

SwayControl::SwayControl(const std::filesystem::path& runtimeFolder)
    : m_socket{connectIn(runtimeFolder)} {}

bool SwayControl::run(std::string_view command) {
    return ask(runCommand, command).find("\"success\": false") == std::string::npos;
}

std::string SwayControl::tree() {
    return ask(getTree, "");
}

std::string SwayControl::ask(std::uint32_t kind, std::string_view text) {
    std::array<std::uint32_t, 2> numbers{static_cast<std::uint32_t>(text.size()), kind};
    std::string message{magic};
    message.resize(magic.size() + sizeof(numbers));
    std::memcpy(message.data() + magic.size(), numbers.data(), sizeof(numbers));
    message += text;
    if (write(m_socket.get(), message.data(), message.size()) !=
        static_cast<ssize_t>(message.size())) {
        throw std::runtime_error{"sway does not listen"};
    }
    std::string head(magic.size() + sizeof(numbers), '\0');
    readAll(m_socket.get(), head.data(), head.size());
    std::memcpy(numbers.data(), head.data() + magic.size(), sizeof(numbers));
    std::string answer(numbers[0], '\0');
    readAll(m_socket.get(), answer.data(), answer.size());
    return answer;
}

} // namespace pallistrom
