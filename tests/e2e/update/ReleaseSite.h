// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "TemporaryFolder.h"

#include <filesystem>
#include <string>

namespace pallistrom::e2e {

/// Where releases come from: somebody with a key, the release scripts and a web server on this
/// computer. Throws std::runtime_error where something of it does not work.
class ReleaseSite {
public:
    /// Makes a key and starts the server.
    ReleaseSite();

    [[nodiscard]] std::string feedAddress() const { return m_address + "/appcast.xml"; }

    /// In base64.
    [[nodiscard]] const std::string& publicKey() const { return m_publicKey; }

    /// Where the archive of a version for this machine has to lie to be released.
    [[nodiscard]] std::filesystem::path archive(const std::string& version) const;

    /// Signs the archive of a version, which lies there, and publishes it.
    void release(const std::string& version, const std::string& notes);

    /// Changes a byte in the middle of a published archive.
    void tamperWith(const std::string& version);

    /// From now on, sends half of an archive and waits.
    void halve(const std::string& version);

    /// Waits until half of it is sent. Returns whether that came to pass in time.
    [[nodiscard]] bool halfIsSent();

    /// Sends the other half.
    void goOn();

private:
    void tell(const std::string& line);

    TemporaryFolder m_folder;
    std::string m_publicKey;
    ChildProcess m_server;
    std::string m_address; ///< without a slash at the end
};

} // namespace pallistrom::e2e
