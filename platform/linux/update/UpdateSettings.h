// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/Ed25519Key.h"

#include <QUrl>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace pallistrom {

/// What the information list says of updates. It is set by whoever builds the program.
struct UpdateSettings {
    using Entry = std::function<std::optional<std::string>(std::string_view key)>;

    QUrl feed;
    Ed25519Key key;
    bool checksByItself = false; ///< until the user says otherwise
    std::chrono::seconds interval{};
    std::string currentVersion; ///< by which versions are compared
    std::string shownVersion;   ///< as people read it
    std::string problem;        ///< a sentence, if with these settings no check is possible

    /// Reads the entries of an information list.
    [[nodiscard]] static UpdateSettings read(const Entry& entry);
};

} // namespace pallistrom
