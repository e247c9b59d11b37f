// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/DesktopEntries.h"

#include "platform/linux/SessionPaths.h"
#include "platform/linux/SmallFile.h"
#include "platform/linux/Text.h"
#include "platform/linux/applications/DesktopEntryText.h"

#include <optional>
#include <string>
#include <system_error>
#include <utility>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;

// Returns what the entry says, or nothing if there is none that can be read.
std::optional<DesktopEntryText> readEntry(const fs::path& path) {
    constexpr std::size_t longest = 262144;
    const SmallFile file = SmallFile::read(path, longest);
    if (file.state != SmallFile::State::Read) {
        return std::nullopt;
    }
    return DesktopEntryText::parse(file.text);
}

} // namespace

DesktopEntries::DesktopEntries(std::vector<fs::path> folders) : m_folders(std::move(folders)) {}

DesktopEntries DesktopEntries::ofSession() {
    std::vector<fs::path> folders = SessionPaths::dataFolders();
    for (fs::path& folder : folders) {
        folder /= "applications";
    }
    return DesktopEntries(std::move(folders));
}

bool DesktopEntries::isTerminal(std::string_view windowClass) const {
    const auto entry = entryOf(windowClass);
    return entry && entry->isTerminal;
}

std::string DesktopEntries::nameOf(std::string_view windowClass) const {
    const auto entry = entryOf(windowClass);
    return entry ? entry->name : std::string();
}

std::optional<DesktopEntryText> DesktopEntries::entryOf(std::string_view windowClass) const {
    auto entry = entryNamed(windowClass);
    return entry ? entry : entryWithWindowClass(windowClass);
}

std::optional<DesktopEntryText> DesktopEntries::entryNamed(std::string_view name) const {
    // A class is no path.
    if (name.find('/') != std::string_view::npos) {
        return std::nullopt;
    }
    for (const fs::path& folder : m_folders) {
        for (const std::string& id : {std::string(name), Text::lowerCase(name)}) {
            if (auto entry = readEntry(folder / (id + ".desktop"))) {
                return entry;
            }
        }
    }
    return std::nullopt;
}

std::optional<DesktopEntryText>
DesktopEntries::entryWithWindowClass(std::string_view windowClass) const {
    const std::string lower = Text::lowerCase(windowClass);
    for (const fs::path& folder : m_folders) {
        std::error_code error;
        for (fs::directory_iterator file(folder, error), end; !error && file != end;
             file.increment(error)) {
            auto entry =
                file->path().extension() == ".desktop" ? readEntry(file->path()) : std::nullopt;
            if (entry && Text::lowerCase(entry->startupWmClass) == lower) {
                return entry;
            }
        }
    }
    return std::nullopt;
}

} // namespace pallistrom
