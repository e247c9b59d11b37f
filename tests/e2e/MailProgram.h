// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FileDescriptor.h"

#include <filesystem>
#include <string>

namespace pallistrom::e2e {

class Home;

/// The mail program of a home folder, which keeps the link that it is given, once its gate has been
/// opened. The folder outlives it.
class MailProgram {
public:
    /// Makes it the program that opens mailto links.
    explicit MailProgram(const Home& home);

    void openGate() const;

    bool hasLink() const;

    /// Every byte of it.
    std::string link() const;

private:
    std::filesystem::path m_folder;
    FileDescriptor m_gate;
};

} // namespace pallistrom::e2e
