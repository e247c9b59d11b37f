// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FieldProtocol.h"

#include <unistd.h>

#include <array>
#include <iostream>
#include <utility>

namespace pallistrom::e2e {

FieldProtocol::FieldProtocol(TextField& field, std::function<void()> quit)
    : m_field{field}, m_quit{std::move(quit)} {}

void FieldProtocol::reportReady() {
    if (!std::exchange(m_saidReady, true)) {
        std::cout << "ready" << std::endl;
    }
}

void FieldProtocol::reportText() const {
    std::cout << "text " << encoded(m_field.state()) << std::endl;
}

void FieldProtocol::readCommands() {
    std::array<char, 4096> buffer{};
    const ssize_t count = ::read(STDIN_FILENO, buffer.data(), buffer.size());
    if (count <= 0) {
        m_quit();
        return;
    }
    m_unread.append(buffer.data(), static_cast<std::size_t>(count));
    for (std::size_t end = m_unread.find('\n'); end != std::string::npos;
         end = m_unread.find('\n')) {
        obey(std::string_view{m_unread}.substr(0, end));
        m_unread.erase(0, end + 1);
    }
}

void FieldProtocol::obey(std::string_view line) {
    if (line == "quit") {
        m_quit();
        return;
    }
    if (line.starts_with("set ")) {
        if (const auto state = decoded(line.substr(4))) {
            m_field.setState(*state);
        }
    }
    reportText();
}

} // namespace pallistrom::e2e
