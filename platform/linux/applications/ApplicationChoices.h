// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/FileUserDefaults.h"

#include <optional>
#include <string_view>

namespace pallistrom {

/// What the user has said of single applications: to leave them alone, or not to. Kept in
/// "applications.ini" beside the settings, where people can change it by hand. An application goes
/// by the class of its windows, or by a pattern of the built-in lists, whatever the case of
/// letters.
///
/// Every change is told as one of the settings (SettingsChanges.h). Main thread only.
class ApplicationChoices {
public:
    /// The choices in `folder`.
    explicit ApplicationChoices(const QString& folder);

    /// Returns whether `application` is to be left alone; nothing if nobody has said.
    [[nodiscard]] std::optional<bool> isLeftAlone(std::string_view application) const;

    void setLeftAlone(std::string_view application, bool isLeftAlone);

    /// Returns all that has been said, by applications in lower case.
    [[nodiscard]] const SettingsText::Values& all() const { return m_store.stored(); }

private:
    FileUserDefaults m_store;
};

} // namespace pallistrom
