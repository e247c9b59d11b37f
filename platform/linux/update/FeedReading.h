// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/UpdateChoice.h"

#include <optional>
#include <string>
#include <string_view>

namespace pallistrom {

/// A version to offer.
struct FoundUpdate {
    AppcastItem item;
    std::optional<AppcastItem::Archive> archive; ///< for this system; has a signature. None of news
    bool isCritical = false;
};

/// What came of looking at a feed.
struct FeedAnswer {
    std::string problem;       ///< a sentence; then there is nothing else
    std::string newestVersion; ///< to be remembered; empty if the feed has none for this system
    std::optional<FoundUpdate> found;
};

/// Reads the bytes of a feed: whom it is from, what it says, what of it to offer. Refused are one
/// that `key` has not signed, and one that knows only versions older than `newestSeen`: an old
/// feed, sent again to hide what has come since.
[[nodiscard]] FeedAnswer readFeed(std::string_view feed,
                                  const Ed25519Key& key,
                                  std::string_view newestSeen,
                                  const UpdateSituation& situation);

} // namespace pallistrom
