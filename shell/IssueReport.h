// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessInfo.h"

#include <optional>
#include <string>
#include <string_view>

namespace pallistrom {

/// The support address.
extern const std::string_view supportEmail;

/// What support has to know.
struct IssueReportFacts {
    std::string_view recipient;
    std::string_view version;
    std::string_view systemName;
    NSOperatingSystemVersion systemVersion;
};

/// Returns a mailto link whose message asks for a description and carries the facts; nothing if
/// they make no link.
[[nodiscard]] std::optional<std::string> issueReportLink(const IssueReportFacts& facts);

/// Opens such a message in the user's mail program. Sends nothing.
void reportAnIssue();

} // namespace pallistrom
