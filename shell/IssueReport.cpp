// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "shell/IssueReport.h"

#include "pallistrom/Names.h"
#include "platform/Bundle.h"
#include "platform/Workspace.h"

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace pallistrom {

const std::string_view supportEmail = Names::supportAddress;

namespace {

using namespace std::string_literals;

/// Encodes the value of a query item as UTF-8. What ends a value ("&", "#") is escaped too.
std::string encoded(const std::string& value) {
    static const QByteArray allowedInQueries = QByteArrayLiteral("!$'()*+,;:@/?");
    return QUrl::toPercentEncoding(QString::fromStdString(value), allowedInQueries).toStdString();
}

std::string dotted(const NSOperatingSystemVersion& version) {
    return std::to_string(version.majorVersion) + '.' + std::to_string(version.minorVersion) + '.' +
           std::to_string(version.patchVersion);
}

std::string subject(const IssueReportFacts& facts) {
    return "Pallistrom "s.append(facts.version).append(" — issue report");
}

std::string body(const IssueReportFacts& facts) {
    return "Describe what happened:\n\n\n---\nPlease keep the details below so I can help faster:\n"
           "App version: "s.append(facts.version)
               .append("\n")
               .append(facts.systemName)
               .append(": ")
               .append(dotted(facts.systemVersion));
}

} // namespace

std::optional<std::string> issueReportLink(const IssueReportFacts& facts) {
    std::string link = "mailto:"s.append(facts.recipient)
                           .append("?subject=")
                           .append(encoded(subject(facts)))
                           .append("&body=")
                           .append(encoded(body(facts)));
    if (!QUrl::fromEncoded(QByteArray::fromStdString(link), QUrl::StrictMode).isValid()) {
        return std::nullopt;
    }
    return link;
}

void reportAnIssue() {
    const std::string version =
        objectForInfoDictionaryKey(CFBundleShortVersionString).value_or("?");
    // On every system the text is looked up under this name.
    const std::string systemName = NSLocalizedString("macOS");
    const auto link = issueReportLink({.recipient = supportEmail,
                                       .version = version,
                                       .systemName = systemName,
                                       .systemVersion = operatingSystemVersion()});
    if (link) {
        openURL(*link);
    }
}

} // namespace pallistrom
