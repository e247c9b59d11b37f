// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "MailProgram.h"

#include "Home.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string_view>

namespace pallistrom::e2e {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view script = "#!/bin/sh\n"
                                    "read -r go <\"$HOME/gate\"\n"
                                    "printf '%s' \"$1\" >\"$HOME/link.new\"\n"
                                    "mv \"$HOME/link.new\" \"$HOME/link\"\n";

void write(const fs::path& path, std::string_view text) {
    fs::create_directories(path.parent_path());
    std::ofstream{path} << text;
}

} // namespace

MailProgram::MailProgram(const Home& home) : m_folder{home.path()} {
    const fs::path program = m_folder / "mail-program";
    write(program, script);
    fs::permissions(program, fs::perms::owner_all);
    const fs::path gate = m_folder / "gate";
    if (mkfifo(gate.c_str(), S_IRWXU) != 0) {
        throw std::runtime_error{"the mail program has no gate"};
    }
    // Open for reading too, so that neither side waits for the other to open it.
    m_gate = FileDescriptor{open(gate.c_str(), O_RDWR | O_CLOEXEC)};
    write(m_folder / "data" / "applications" / "mail.desktop",
          "[Desktop Entry]\nType=Application\nName=Mail\nMimeType=x-scheme-handler/mailto;\n"
          "Exec=" +
              program.string() + " %u\n");
    write(home.configFolder() / "mimeapps.list",
          "[Default Applications]\nx-scheme-handler/mailto=mail.desktop\n");
}

void MailProgram::openGate() const {
    constexpr std::string_view word = "go\n";
    if (::write(m_gate.get(), word.data(), word.size()) != std::ssize(word)) {
        throw std::runtime_error{"the gate of the mail program stays shut"};
    }
}

bool MailProgram::hasLink() const {
    return fs::exists(m_folder / "link");
}

std::string MailProgram::link() const {
    std::ifstream file{m_folder / "link", std::ios::binary};
    return {std::istreambuf_iterator<char>{file}, {}};
}

} // namespace pallistrom::e2e
