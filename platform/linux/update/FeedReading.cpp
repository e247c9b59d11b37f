// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/FeedReading.h"

#include "platform/linux/update/FeedSignature.h"
#include "platform/linux/update/VersionOrder.h"

namespace pallistrom {

FeedAnswer readFeed(std::string_view feed,
                    const Ed25519Key& key,
                    std::string_view newestSeen,
                    const UpdateSituation& situation) {
    FeedAnswer answer;
    const auto signedPart = FeedSignature::signedPart(feed, key);
    if (!signedPart) {
        answer.problem = "The update feed does not have the right signature.";
        return answer;
    }
    const Appcast appcast = Appcast::parse(*signedPart);
    if (!appcast.problem.empty()) {
        answer.problem = "The update feed " + appcast.problem + ".";
        return answer;
    }
    answer.newestVersion = UpdateChoice::newestVersion(appcast.items, situation);
    if (VersionOrder::isOlder(answer.newestVersion, newestSeen)) {
        answer.problem = "The update feed is older than one that came before.";
        return answer;
    }
    if (const auto* const item = UpdateChoice::best(appcast.items, situation)) {
        auto& found = answer.found.emplace();
        found.item = *item;
        found.isCritical = UpdateChoice::isCritical(*item, situation);
        if (!UpdateChoice::isNews(*item, situation)) {
            found.archive = *UpdateChoice::archiveFor(*item, situation);
        }
    }
    return answer;
}

} // namespace pallistrom
