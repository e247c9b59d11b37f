// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/windows/SoftwareCentre.h"

#include "pallistrom/Names.h"
#include "platform/linux/QtText.h"
#include "platform/linux/SmallFile.h"
#include "platform/linux/Text.h"
#include "platform/linux/applications/DesktopEntryLines.h"

#include <QDesktopServices>
#include <QUrl>

#include <algorithm>
#include <system_error>

namespace pallistrom::SoftwareCentre {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view type = "x-scheme-handler/appstream";

} // namespace

std::vector<std::string> entriesIn(std::string_view mimeInfoCache) {
    std::vector<std::string> entries;
    DesktopEntryLines::forEachValue(
        mimeInfoCache, "MIME Cache", [&](std::string_view key, std::string_view value) {
            if (key == type) {
                entries = DesktopEntryLines::list(value);
            }
        });
    return entries;
}

bool exists(const std::vector<fs::path>& folders) {
    constexpr std::size_t longest = 4U << 20U;
    // The cache may still name what has been removed; and an entry may lie in another folder.
    const auto isInstalled = [&](const std::string& entry) {
        return std::any_of(folders.begin(), folders.end(), [&](const fs::path& folder) {
            std::error_code ignored;
            return fs::exists(folder / "applications" / entry, ignored);
        });
    };
    return std::any_of(folders.begin(), folders.end(), [&](const fs::path& folder) {
        const auto cache = SmallFile::read(folder / "applications" / "mimeinfo.cache", longest);
        const auto entries = entriesIn(cache.text);
        return std::any_of(entries.begin(), entries.end(), isInstalled);
    });
}

void open() {
    // Not as a host, which would lose its capital letters.
    QDesktopServices::openUrl(
        QUrl(QStringLiteral("appstream:") + qtText(Names::applicationId), QUrl::StrictMode));
}

} // namespace pallistrom::SoftwareCentre
