// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/NewProgram.h"

#include "pallistrom/Names.h"
#include "platform/Bundle.h"
#include "platform/linux/bundle/InformationList.h"
#include "platform/linux/update/install/InstallEvidence.h"

#include <unistd.h>

#include <array>
#include <fstream>
#include <system_error>

namespace pallistrom::NewProgram {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t headerSize = 20;

std::string headerOf(const fs::path& file) {
    std::array<char, headerSize> header{};
    std::ifstream stream(file, std::ios::binary);
    stream.read(header.data(), header.size());
    return {header.data(), static_cast<std::size_t>(stream.gcount())};
}

// A file itself: a link might lead to something else by the time it is started.
bool isFile(const fs::path& path) {
    std::error_code ignored;
    return fs::is_regular_file(fs::symlink_status(path, ignored));
}

} // namespace

std::string machineIn(std::string_view header) {
    constexpr std::size_t classOffset = 4; // then the byte order
    constexpr std::size_t classLength = 2;
    constexpr std::size_t machineOffset = 18;
    if (header.size() < headerSize || !header.starts_with("\177ELF")) {
        return {};
    }
    // Without the byte between: it names systems of the same processor.
    return std::string(header.substr(classOffset, classLength)) +
           std::string(header.substr(machineOffset, headerSize - machineOffset));
}

Verdict
examine(const fs::path& folder, const std::string& offeredVersion, const fs::path& running) {
    const fs::path program = folder / "bin" / Names::program;
    if (!isFile(InstallEvidence::markerIn(folder)) || !isFile(program) ||
        access(program.c_str(), X_OK) != 0) {
        return Verdict::Incomplete;
    }
    const auto list = InformationList::ofProgramIn(program.parent_path());
    if (list.entry(CFBundleShortVersionString) != offeredVersion) {
        return Verdict::OtherVersion;
    }
    const std::string machine = machineIn(headerOf(program));
    if (machine.empty()) {
        return Verdict::Incomplete;
    }
    return machine == machineIn(headerOf(running)) ? Verdict::Fits : Verdict::OtherMachine;
}

} // namespace pallistrom::NewProgram
