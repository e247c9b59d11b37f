// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/AppcastReader.h"

namespace pallistrom {

namespace {

constexpr QLatin1String updateSpace("http://www.andymatuschak.org/xml-namespaces/sparkle");

} // namespace

QXmlStreamReader::TokenType AppcastReader::next() {
    const auto token = m_xml.readNext();
    switch (token) {
    case QXmlStreamReader::StartElement:
        if (++m_depth > m_limits.depth) {
            refuse(QStringLiteral("has too many elements within each other"));
        }
        break;
    case QXmlStreamReader::EndElement:
        --m_depth;
        break;
    case QXmlStreamReader::DTD:
        // Where entities are declared that make little text grow to much.
        refuse(QStringLiteral("has a document type, which none needs"));
        break;
    default:
        break;
    }
    return m_xml.hasError() ? QXmlStreamReader::Invalid : token;
}

bool AppcastReader::enterRoot(QLatin1String name) {
    while (!m_xml.atEnd() && next() != QXmlStreamReader::StartElement) {
    }
    return !m_xml.hasError() && isPlain(name);
}

void AppcastReader::forEachChild(const std::function<void()>& use) {
    const int depth = m_depth;
    while (!m_xml.hasError() && m_depth >= depth) {
        if (next() == QXmlStreamReader::StartElement) {
            use();
            leave(depth);
        }
    }
}

// Skips what is left of the elements deeper than `depth`.
void AppcastReader::leave(int depth) {
    while (!m_xml.hasError() && m_depth > depth) {
        next();
    }
}

void AppcastReader::finish() {
    while (!m_xml.atEnd()) {
        next();
    }
}

bool AppcastReader::isUpdate(QLatin1String name) const {
    return m_xml.name() == name && m_xml.namespaceUri() == updateSpace;
}

bool AppcastReader::isPlain(QLatin1String name) const {
    return m_xml.name() == name && m_xml.namespaceUri().isEmpty();
}

// Returns the text, and whether it is all of it.
std::pair<QString, bool> AppcastReader::ownText(std::size_t longest) {
    const int depth = m_depth;
    const auto most = static_cast<qsizetype>(longest);
    QString text;
    bool isWhole = true;
    while (!m_xml.hasError() && m_depth >= depth) {
        if (next() == QXmlStreamReader::Characters && m_depth == depth) {
            isWhole = isWhole && text.size() + m_xml.text().size() <= most;
            text += m_xml.text().left(most - text.size());
        }
    }
    return {text, isWhole};
}

std::optional<std::string> AppcastReader::text() {
    const auto [text, isWhole] = ownText(m_limits.text);
    return isWhole ? bounded(text) : std::nullopt;
}

std::string AppcastReader::notes() {
    return ownText(m_limits.notes).first.toStdString();
}

std::optional<std::string> AppcastReader::bounded(QStringView text) const {
    std::string result = text.trimmed().toUtf8().toStdString();
    return result.size() <= m_limits.text ? std::optional(std::move(result)) : std::nullopt;
}

std::optional<std::string> AppcastReader::updateAttribute(QLatin1String name) const {
    return bounded(m_xml.attributes().value(updateSpace, name));
}

std::optional<std::string> AppcastReader::plainAttribute(QLatin1String name) const {
    return bounded(m_xml.attributes().value(name));
}

void AppcastReader::refuse(const QString& problem) {
    if (!m_xml.hasError()) {
        m_xml.raiseError(problem);
    }
}

std::string AppcastReader::problem() const {
    switch (m_xml.error()) {
    case QXmlStreamReader::NoError:
        return {};
    case QXmlStreamReader::CustomError:
        return m_xml.errorString().toStdString();
    case QXmlStreamReader::NotWellFormedError:
    case QXmlStreamReader::PrematureEndOfDocumentError:
    case QXmlStreamReader::UnexpectedElementError:
        break;
    }
    return "is broken in line " + std::to_string(m_xml.lineNumber());
}

} // namespace pallistrom
