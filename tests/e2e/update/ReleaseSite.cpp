// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ReleaseSite.h"

#include "Environment.h"

#include <sys/utsname.h>

#include <fstream>
#include <ios>
#include <stdexcept>
#include <utility>
#include <vector>

namespace pallistrom::e2e {

namespace {

namespace fs = std::filesystem;

constexpr const char* keyFile = "key.pem";

Command command(std::vector<std::string> arguments) {
    return {.arguments = std::move(arguments),
            .environment = {{"PATH", Environment::value("PATH")}},
            .errorFile = {}};
}

// Bash takes our end of its input for a network, and would read the person's settings.
Command bash(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"bash", "--norc"});
    return command(std::move(arguments));
}

std::string publicHalf(const fs::path& key) {
    // The last bytes of the key's usual form are the key.
    constexpr const char* script = "openssl pkey -in \"$0\" -pubout -outform DER |"
                                   " tail -c 32 | base64";
    return ChildProcess{bash({"-c", script, key})}.readLine().value_or("");
}

std::string newPublicKey(const fs::path& key) {
    run(command({"openssl", "genpkey", "-algorithm", "ed25519", "-out", key}));
    fs::permissions(key, fs::perms::owner_read);
    return publicHalf(key);
}

} // namespace

ReleaseSite::ReleaseSite()
    : m_publicKey{newPublicKey(m_folder.path() / keyFile)},
      m_server{command({UPDATE_SERVER, m_folder.path()})},
      m_address{m_server.readLine().value_or("/")} {
    m_address.pop_back();
}

fs::path ReleaseSite::archive(const std::string& version) const {
    utsname system{};
    ::uname(&system);
    return m_folder.path() / ("pallistrom-" + version + "-linux-" +
                              static_cast<const char*>(system.machine) + ".tar.xz");
}

void ReleaseSite::release(const std::string& version, const std::string& notes) {
    std::ofstream{m_folder.path() / "notes"} << notes << "\n";
    run(bash({RELEASE_FEED, SOURCES, m_folder.path(), m_address, version, ""}));
    tell("serve appcast.xml");
    tell("serve " + archive(version).filename().string());
}

void ReleaseSite::tamperWith(const std::string& version) {
    const fs::path file = archive(version);
    std::fstream stream{file, std::ios::in | std::ios::out | std::ios::binary};
    const auto middle = static_cast<std::streamoff>(fs::file_size(file) / 2);
    const int byte = stream.seekg(middle).get();
    stream.seekp(middle).put(static_cast<char>(byte ^ 1));
    stream.close();
    tell("serve " + file.filename().string());
}

void ReleaseSite::halve(const std::string& version) {
    tell("halve " + archive(version).filename().string());
}

bool ReleaseSite::halfIsSent() {
    return m_server.readLine() == "half";
}

void ReleaseSite::goOn() {
    tell("go on");
}

void ReleaseSite::tell(const std::string& line) {
    m_server.writeLine(line);
    const std::string answer = m_server.readLine().value_or("nothing");
    if (answer != "done " + line) {
        throw std::runtime_error{"the server was told to " + line + ", but said " + answer};
    }
}

} // namespace pallistrom::e2e
