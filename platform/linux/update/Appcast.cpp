// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/Appcast.h"

#include "platform/linux/Text.h"
#include "platform/linux/update/AppcastReader.h"
#include "platform/linux/update/PlainNotes.h"
#include "platform/linux/update/VersionOrder.h"

#include <QByteArrayView>
#include <QDateTime>
#include <QStringDecoder>

#include <algorithm>
#include <array>

namespace pallistrom {

namespace {

// What an item is made of while it is read.
struct Draft {
    AppcastItem item;
    std::string archiveVersion; // the old place of both versions is the archive
    std::string archiveShortVersion;
    std::string link;
    std::string fullNotesLink;
    std::string notesLink;
    std::string published;
    std::string rollOutInterval;
    std::string hardware;
    bool isGood = true;

    // Takes a text into `field` if it is the first, and if it is not too long.
    void take(std::string& field, const std::optional<std::string>& text) {
        isGood = isGood && text;
        if (text && field.empty()) {
            field = *text;
        }
    }
};

struct TextElement {
    QLatin1String name;
    std::string& (*field)(Draft& draft);
};

// clang-format off

// Of the name space of updates.
const std::array<TextElement, 12> updateTexts{{
    {QLatin1String("version"), [](Draft& d) -> std::string& { return d.item.version; }},
    {QLatin1String("shortVersionString"), [](Draft& d) -> std::string& { return d.item.shortVersion; }},
    {QLatin1String("channel"), [](Draft& d) -> std::string& { return d.item.channel; }},
    {QLatin1String("minimumSystemVersion"), [](Draft& d) -> std::string& { return d.item.minimumSystemVersion; }},
    {QLatin1String("maximumSystemVersion"), [](Draft& d) -> std::string& { return d.item.maximumSystemVersion; }},
    {QLatin1String("minimumUpdateVersion"), [](Draft& d) -> std::string& { return d.item.minimumUpdateVersion; }},
    {QLatin1String("minimumAutoupdateVersion"), [](Draft& d) -> std::string& { return d.item.minimumAutoupdateVersion; }},
    {QLatin1String("ignoreSkippedUpgradesBelowVersion"), [](Draft& d) -> std::string& { return d.item.unskippedBelow; }},
    {QLatin1String("hardwareRequirements"), [](Draft& d) -> std::string& { return d.hardware; }},
    {QLatin1String("phasedRolloutInterval"), [](Draft& d) -> std::string& { return d.rollOutInterval; }},
    {QLatin1String("releaseNotesLink"), [](Draft& d) -> std::string& { return d.notesLink; }},
    {QLatin1String("fullReleaseNotesLink"), [](Draft& d) -> std::string& { return d.fullNotesLink; }},
}};

// Of plain RSS.
const std::array<TextElement, 2> plainTexts{{
    {QLatin1String("link"), [](Draft& d) -> std::string& { return d.link; }},
    {QLatin1String("pubDate"), [](Draft& d) -> std::string& { return d.published; }},
}};

// clang-format on

std::optional<std::int64_t> secondsOf(const std::string& date) {
    QString text = QString::fromStdString(date);
    for (const auto* const zero : {" GMT", " UTC", " UT", " Z"}) {
        if (text.endsWith(QLatin1String(zero))) {
            text.replace(text.lastIndexOf(QLatin1Char(' ')), text.size(), QStringLiteral(" +0000"));
        }
    }
    const auto time = QDateTime::fromString(text, Qt::RFC2822Date);
    return time.isValid() ? std::optional<std::int64_t>(time.toSecsSinceEpoch()) : std::nullopt;
}

std::vector<std::string> wordsOf(std::string_view text) {
    constexpr std::string_view between = ", \t\r\n";
    std::vector<std::string> words;
    while (true) {
        text.remove_prefix(std::min(text.find_first_not_of(between), text.size()));
        if (text.empty()) {
            return words;
        }
        const auto end = std::min(text.find_first_of(between), text.size());
        words.emplace_back(text.substr(0, end));
        text.remove_prefix(end);
    }
}

void readArchive(AppcastReader& reader, Draft& draft) {
    constexpr std::size_t most = 16;
    if (draft.item.archives.size() == most) {
        draft.isGood = false;
        return;
    }
    auto& archive = draft.item.archives.emplace_back();
    std::string length;
    std::string signature;
    draft.take(archive.address, reader.plainAttribute(QLatin1String("url")));
    draft.take(length, reader.plainAttribute(QLatin1String("length")));
    draft.take(signature, reader.updateAttribute(QLatin1String("edSignature")));
    draft.take(archive.system, reader.updateAttribute(QLatin1String("os")));
    draft.take(draft.archiveVersion, reader.updateAttribute(QLatin1String("version")));
    draft.take(draft.archiveShortVersion,
               reader.updateAttribute(QLatin1String("shortVersionString")));
    archive.length = Text::number<std::uint64_t>(length).value_or(0);
    archive.signature = Ed25519Signature::fromBase64(signature);
}

void readUrgency(AppcastReader& reader, Draft& draft) {
    draft.item.urgency.emplace();
    draft.take(draft.item.urgency->below, reader.updateAttribute(QLatin1String("version")));
}

void readNews(AppcastReader& reader, Draft& draft) {
    constexpr std::size_t most = 1000;
    auto& news = draft.item.news.emplace();
    reader.forEachChild([&] {
        if (reader.isUpdate(QLatin1String("version")) && news.versions.size() < most) {
            draft.take(news.versions.emplace_back(), reader.text());
        } else if (reader.isUpdate(QLatin1String("belowVersion"))) {
            draft.take(news.below, reader.text());
        }
    });
}

bool readText(AppcastReader& reader, Draft& draft) {
    for (const auto& [name, field] : updateTexts) {
        if (reader.isUpdate(name)) {
            draft.take(field(draft), reader.text());
            return true;
        }
    }
    for (const auto& [name, field] : plainTexts) {
        if (reader.isPlain(name)) {
            draft.take(field(draft), reader.text());
            return true;
        }
    }
    return false;
}

void readNotes(AppcastReader& reader, Draft& draft) {
    if (draft.item.notes.empty()) {
        const bool isPlain = reader.updateAttribute(QLatin1String("format")) == "plain-text";
        const std::string notes = reader.notes();
        draft.item.notes = isPlain ? PlainNotes::ofPlain(notes) : PlainNotes::of(notes);
    }
}

void readChild(AppcastReader& reader, Draft& draft) {
    if (readText(reader, draft)) {
        return;
    }
    if (reader.isPlain(QLatin1String("description"))) {
        readNotes(reader, draft);
    } else if (reader.isPlain(QLatin1String("enclosure"))) {
        readArchive(reader, draft);
    } else if (reader.isUpdate(QLatin1String("criticalUpdate"))) {
        readUrgency(reader, draft);
    } else if (reader.isUpdate(QLatin1String("informationalUpdate"))) {
        readNews(reader, draft);
    } else if (reader.isUpdate(QLatin1String("tags"))) {
        reader.forEachChild([&] {
            // The old form, for everybody.
            if (reader.isUpdate(QLatin1String("criticalUpdate"))) {
                draft.item.urgency.emplace();
            }
        });
    }
}

// Nothing if it is no item that could ever be offered.
std::optional<AppcastItem> finished(Draft&& draft) {
    AppcastItem& item = draft.item;
    if (item.version.empty()) {
        item.version = draft.archiveVersion;
    }
    if (!draft.isGood || !VersionOrder::isVersion(item.version)) {
        return std::nullopt;
    }
    for (const std::string& name : {draft.archiveShortVersion, item.version}) {
        if (item.shortVersion.empty()) {
            item.shortVersion = name;
        }
    }
    item.shortVersion = PlainNotes::line(item.shortVersion);
    for (const std::string& link : {draft.link, draft.fullNotesLink, draft.notesLink}) {
        if (item.link.empty()) {
            item.link = link;
        }
    }
    item.hardware = wordsOf(draft.hardware);
    item.rollOutInterval =
        std::max<std::int64_t>(Text::number<std::int64_t>(draft.rollOutInterval).value_or(0), 0);
    item.published = secondsOf(draft.published);
    return std::move(item);
}

void readChannel(AppcastReader& reader, std::vector<AppcastItem>& items, std::size_t& count) {
    reader.forEachChild([&] {
        if (!reader.isPlain(QLatin1String("item"))) {
            return;
        }
        if (++count > reader.limits().items) {
            reader.refuse(QStringLiteral("has too many items"));
            return;
        }
        Draft draft;
        reader.forEachChild([&] { readChild(reader, draft); });
        if (auto item = finished(std::move(draft))) {
            items.push_back(std::move(*item));
        }
    });
}

} // namespace

Appcast Appcast::parse(std::string_view feed, const AppcastLimits& limits) {
    if (feed.size() > limits.bytes) {
        return {.items = {}, .problem = "is too large"};
    }
    // Decoded here, so that no other encoding that the feed may claim to have is believed.
    QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decode(QByteArrayView(feed.data(), static_cast<qsizetype>(feed.size())));
    if (decode.hasError()) {
        return {.items = {}, .problem = "is not in UTF-8"};
    }
    AppcastReader reader(text, limits);
    Appcast result;
    std::size_t count = 0;
    if (reader.enterRoot(QLatin1String("rss"))) {
        reader.forEachChild([&] {
            if (reader.isPlain(QLatin1String("channel"))) {
                readChannel(reader, result.items, count);
            }
        });
    } else {
        reader.refuse(QStringLiteral("is none"));
    }
    reader.finish();
    result.problem = reader.problem();
    if (!result.problem.empty()) {
        result.items.clear();
    }
    return result;
}

} // namespace pallistrom
