// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/UpdateStateFile.h"

#include "platform/Log.h"
#include "platform/linux/SmallFile.h"

#include <fstream>
#include <system_error>
#include <utility>

namespace pallistrom {

namespace fs = std::filesystem;

namespace {

fs::path withSuffix(fs::path path, const char* suffix) {
    return path += suffix;
}

// Returns what stood in the way; empty if nothing did.
std::string replace(const fs::path& path, const std::string& text) {
    std::error_code error;
    fs::create_directories(path.parent_path(), error);
    // Not synchronised with the disk: that may take long, and keys wait. After a power failure the
    // file is the old one, the new one, or damaged, and then it starts anew.
    const fs::path other = withSuffix(path, ".new");
    std::ofstream file(other, std::ios::binary | std::ios::trunc);
    file << text << std::flush;
    if (!file.good()) {
        return other.string() + " cannot be written";
    }
    file.close();
    fs::rename(other, path, error);
    return error ? error.message() : std::string();
}

} // namespace

UpdateState UpdateStateFile::load() const {
    constexpr std::size_t longest = 65536;
    const auto file = SmallFile::read(m_path, longest);
    if (file.state == SmallFile::State::Missing) {
        return {};
    }
    if (file.state == SmallFile::State::Read) {
        if (auto state = UpdateState::parse(file.text)) {
            return *std::move(state);
        }
    }
    const fs::path kept = withSuffix(m_path, ".damaged");
    std::error_code error;
    fs::rename(m_path, kept, error);
    NSLog(
        "Pallistrom: what the updater remembers is damaged; " +
        (error ? "it cannot be put aside: " + error.message() : "it is kept as " + kept.string()));
    return {};
}

void UpdateStateFile::save(const UpdateState& state) {
    const std::string problem = replace(m_path, state.text());
    if (!std::exchange(m_isInTrouble, !problem.empty()) && m_isInTrouble) {
        NSLog("Pallistrom: what the updater remembers cannot be saved: " + problem);
    }
}

} // namespace pallistrom
