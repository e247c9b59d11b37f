// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/Appcast.h"

#include <QXmlStreamReader>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace pallistrom {

/// Walks through the elements of a feed, within its limits. Used by Appcast alone.
class AppcastReader {
public:
    AppcastReader(const QString& text, const AppcastLimits& limits)
        : m_xml(text), m_limits(limits) {}

    /// Enters the document's outermost element. Returns whether it has this name.
    [[nodiscard]] bool enterRoot(QLatin1String name);

    /// Enters each element within the current one in turn and calls `use`, which may leave it or
    /// not; stops where the feed turns out to be broken.
    void forEachChild(const std::function<void()>& use);

    /// Reads to the end of the document.
    void finish();

    /// Whether the current element has this name, in the name space of updates or in none.
    [[nodiscard]] bool isUpdate(QLatin1String name) const;
    [[nodiscard]] bool isPlain(QLatin1String name) const;

    /// Reads the current element's own text and leaves the element. Nothing if there is more than
    /// may be.
    [[nodiscard]] std::optional<std::string> text();

    /// The same, but what is too long is cut off.
    [[nodiscard]] std::string notes();

    /// Returns an attribute of the current element; empty if there is none. Nothing if it is too
    /// long.
    [[nodiscard]] std::optional<std::string> updateAttribute(QLatin1String name) const;
    [[nodiscard]] std::optional<std::string> plainAttribute(QLatin1String name) const;

    /// Refuses the feed. `problem` goes on after "the feed".
    void refuse(const QString& problem);

    /// What is wrong with the feed; empty if nothing is.
    [[nodiscard]] std::string problem() const;

    [[nodiscard]] const AppcastLimits& limits() const { return m_limits; }

private:
    QXmlStreamReader::TokenType next();
    void leave(int depth);
    [[nodiscard]] std::pair<QString, bool> ownText(std::size_t longest);
    [[nodiscard]] std::optional<std::string> bounded(QStringView text) const;

    QXmlStreamReader m_xml;
    AppcastLimits m_limits;
    int m_depth = 0;
};

} // namespace pallistrom
