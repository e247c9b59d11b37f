// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/applications/ApplicationKinds.h"

#include <string>
#include <vector>

namespace pallistrom {

/// An application as the user sees it in the list of those that can be left alone.
struct ApplicationRow {
    std::string application; ///< by which it is chosen
    std::string title;       ///< as people know it
    std::string reason;      ///< what is special about it; may be empty
    bool isLeftAlone = false;

    friend bool operator==(const ApplicationRow&, const ApplicationRow&) = default;
};

/// Applications that belong together, under a title.
struct ApplicationGroup {
    std::string title;
    std::vector<ApplicationRow> rows;
};

/// Returns everything that there is to choose: the application that was in front last, those that
/// were before it, others that the user has spoken of, and those of the built-in lists. Each
/// application is in one group only.
[[nodiscard]] std::vector<ApplicationGroup> applicationGroups(ApplicationKinds& kinds);

} // namespace pallistrom
