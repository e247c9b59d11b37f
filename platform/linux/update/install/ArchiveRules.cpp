// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/ArchiveRules.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace pallistrom {

namespace {

constexpr std::size_t longestPath = 1024;
constexpr std::size_t longestName = 255;
constexpr std::size_t deepest = 32;

bool isPlain(char c) {
    constexpr unsigned char del = 0x7F;
    const auto code = static_cast<unsigned char>(c);
    return code >= ' ' && code != del;
}

// The names of a path, "" among them where a slash has none on one side.
std::vector<std::string_view> namesOf(std::string_view path) {
    std::vector<std::string_view> names;
    for (std::size_t begin = 0; begin <= path.size();) {
        const std::size_t end = std::min(path.find('/', begin), path.size());
        names.push_back(path.substr(begin, end - begin));
        begin = end + 1;
    }
    return names;
}

bool isGoodName(std::string_view name) {
    return !name.empty() && name.size() <= longestName && name != "." && name != ".." &&
           std::all_of(name.begin(), name.end(), isPlain);
}

// Relative, up first if at all, and never out of the one folder. A way up further on could come
// after another link, and so begin elsewhere than it seems. `place` is where the link lies.
bool staysInside(std::string_view target, std::string_view place) {
    if (target.size() > longestPath) {
        return false;
    }
    const auto names = namesOf(target);
    const auto down = std::find_if(
        names.begin(), names.end(), [](std::string_view name) { return name != ".."; });
    const auto stepsUp = static_cast<std::size_t>(down - names.begin());
    return stepsUp < namesOf(place).size() && down != names.end() &&
           std::all_of(down, names.end(), isGoodName);
}

} // namespace

std::optional<std::string> ArchiveRules::placeOf(const TarEntry& entry) {
    const auto names = namesOf(entry.path);
    if (entry.path.size() > longestPath || names.size() > deepest ||
        !std::all_of(names.begin(), names.end(), isGoodName) || ++m_entries > mostEntries ||
        entry.size > mostBytes - m_bytes) {
        return std::nullopt;
    }
    m_bytes += entry.size;
    if (m_top.empty()) {
        m_top = names.front();
    }
    const bool isFolder = entry.kind == TarEntry::Kind::Folder;
    if (names.front() != m_top || (names.size() == 1 && !isFolder)) {
        return std::nullopt;
    }
    std::string place = entry.path.substr(std::min(m_top.size() + 1, entry.path.size()));
    const bool isLink = entry.kind == TarEntry::Kind::Link;
    if (liesBelowLink(place) || (isLink && !staysInside(entry.target, place)) ||
        (!isFolder && !m_places.insert(place).second)) {
        return std::nullopt;
    }
    if (isLink) {
        m_links.insert(place);
    }
    return place;
}

// Also for the link itself: a folder of its name would be written through it.
bool ArchiveRules::liesBelowLink(const std::string& place) const {
    for (std::size_t end = place.find('/'); end != std::string::npos;
         end = place.find('/', end + 1)) {
        if (m_links.contains(std::string_view(place).substr(0, end))) {
            return true;
        }
    }
    return m_links.contains(place);
}

} // namespace pallistrom
