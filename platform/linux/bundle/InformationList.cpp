// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/bundle/InformationList.h"

#include "pallistrom/Names.h"
#include "platform/linux/SmallFile.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace pallistrom {

namespace fs = std::filesystem;

InformationList InformationList::parse(std::string_view text) {
    InformationList list;
    const auto document = QJsonDocument::fromJson(
        QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())));
    const QJsonObject object = document.object();
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        if (entry.value().isString()) {
            list.m_entries.emplace(entry.key().toStdString(),
                                   entry.value().toString().toStdString());
        }
    }
    return list;
}

InformationList InformationList::ofProgramIn(const fs::path& programFolder) {
    constexpr std::size_t longest = 65536;
    const fs::path name = fs::path("share") / Names::dataFolder / "Info.json";
    for (const fs::path& path : {programFolder.parent_path() / name, programFolder / name}) {
        const auto file = SmallFile::read(path, longest);
        if (file.state != SmallFile::State::Missing) {
            return parse(file.text);
        }
    }
    return {};
}

std::optional<std::string> InformationList::entry(std::string_view key) const {
    const auto found = m_entries.find(key);
    return found == m_entries.end() ? std::nullopt : std::optional(found->second);
}

} // namespace pallistrom
