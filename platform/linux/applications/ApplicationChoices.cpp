// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/ApplicationChoices.h"

#include "platform/linux/Text.h"

namespace pallistrom {

ApplicationChoices::ApplicationChoices(const QString& folder)
    : m_store(folder, QStringLiteral("applications.ini")) {}

std::optional<bool> ApplicationChoices::isLeftAlone(std::string_view application) const {
    const auto found = all().find(Text::lowerCase(application));
    return found == all().end() ? std::nullopt : std::optional(found->second);
}

void ApplicationChoices::setLeftAlone(std::string_view application, bool isLeftAlone) {
    m_store.setBoolForKey(isLeftAlone, Text::lowerCase(application));
}

} // namespace pallistrom
