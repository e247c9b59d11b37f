// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "SessionTerminal.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <utility>

namespace pallistrom::vm {

SessionTerminal::SessionTerminal(const WaylandSession& session, std::vector<std::string> terminal)
    : m_process{start(session, std::move(terminal))} {
    if (!waitUntil([this] { return std::filesystem::exists(m_folder.path() / "bytes"); },
                   WaylandSession::patience())) {
        throw std::runtime_error{"the terminal does not come up"};
    }
}

ChildProcess SessionTerminal::start(const WaylandSession& session,
                                    std::vector<std::string> terminal) const {
    std::filesystem::permissions(m_folder.path(), std::filesystem::perms::all);
    const std::string bytes = m_folder.path() / "bytes";
    terminal.insert(terminal.end(), {"sh", "-c", "stty raw -echo; exec cat >" + bytes});
    Command command = session.command(terminal);
    command.errorFile = m_folder.path() / "terminal.log";
    return ChildProcess{command};
}

std::string SessionTerminal::waitFor(const std::string& bytes) {
    static_cast<void>(waitUntil([&] { return read().size() >= bytes.size(); },
                                Deadline{std::chrono::seconds{60}}));
    return read();
}

std::string SessionTerminal::read() const {
    std::ifstream file{m_folder.path() / "bytes", std::ios::binary};
    return {std::istreambuf_iterator<char>{file}, {}};
}

} // namespace pallistrom::vm
