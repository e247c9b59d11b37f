// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/Ed25519Key.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace pallistrom {

/// What a feed says of one version. All texts are UTF-8 and of bounded length; nothing is believed
/// of them beyond that, but that `version` is one.
struct AppcastItem {
    /// A file to download.
    struct Archive {
        std::string address;
        std::uint64_t length = 0;                  ///< in bytes; 0 if the feed says nothing of use
        std::optional<Ed25519Signature> signature; ///< none if there is none that could be right
        std::string system;                        ///< which it is for; empty if that is not said
    };

    /// To be told of, and not to be installed by the program.
    struct News {
        std::vector<std::string> versions; ///< for those who have one of these...
        std::string below;                 ///< ...or one that is older; for all if both are empty
    };

    /// Not to be put off.
    struct Urgency {
        std::string below; ///< for those who have one that is older; for all if empty
    };

    std::string version;      ///< by which it is compared
    std::string shortVersion; ///< as people read it; never empty
    std::string notes;        ///< plain text
    std::string link;         ///< to a page; may be empty
    std::string channel;      ///< empty for everybody's
    std::string minimumSystemVersion;
    std::string maximumSystemVersion;
    std::vector<std::string> hardware;     ///< each is needed
    std::string minimumUpdateVersion;      ///< what one has to have, for it to be offered at all
    std::string minimumAutoupdateVersion;  ///< for those who have an older one it is a big step
    std::string unskippedBelow;            ///< a big step older than this that was skipped is none
    std::optional<News> news;              ///< if it is marked as such
    std::optional<Urgency> urgency;        ///< if it is marked as such
    std::int64_t rollOutInterval = 0;      ///< in seconds, from one group of people to the next
    std::optional<std::int64_t> published; ///< seconds since 1970
    std::vector<Archive> archives;
};

} // namespace pallistrom
