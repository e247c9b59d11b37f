// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/UpdateChoice.h"

#include "platform/linux/update/VersionOrder.h"

#include <algorithm>
#include <compare>

namespace pallistrom::UpdateChoice {

namespace {

using Item = AppcastItem;
using Situation = UpdateSituation;
using VersionOrder::isOlder;

bool isMachine(std::string_view name, const Situation& situation) {
    return name == situation.machine || (name == "arm64" && situation.machine == "aarch64");
}

// A feed serves other systems too; "linux-" goes on with a machine. What names no system is theirs
// that do not name it.
bool isOurs(std::string_view system, const Situation& situation) {
    constexpr std::string_view ours = "linux";
    if (!system.starts_with(ours)) {
        return false;
    }
    system.remove_prefix(ours.size());
    return system.empty() || (system.front() == '-' && isMachine(system.substr(1), situation));
}

// Without any archive it is news, for every system.
bool isForUs(const Item& item, const Situation& situation) {
    return item.archives.empty() ||
           std::any_of(item.archives.begin(), item.archives.end(), [&](const auto& archive) {
               return isOurs(archive.system, situation);
           });
}

bool fitsTheSystem(const Item& item, const Situation& situation) {
    const bool isTooOld = !item.minimumSystemVersion.empty() &&
                          isOlder(situation.systemVersion, item.minimumSystemVersion);
    const bool isTooNew = !item.maximumSystemVersion.empty() &&
                          isOlder(item.maximumSystemVersion, situation.systemVersion);
    return !isTooOld && !isTooNew &&
           std::all_of(item.hardware.begin(), item.hardware.end(), [&](const std::string& name) {
               return isMachine(name, situation);
           });
}

bool isAllowed(const Item& item, const Situation& situation) {
    return (item.channel.empty() || situation.channels.contains(item.channel)) &&
           !isOlder(situation.currentVersion, item.minimumUpdateVersion);
}

// Takes turns: the first group has it at once, each other one an interval after the one before.
bool isRolledOut(const Item& item, const Situation& situation) {
    if (situation.check == UpdateCheck::Asked || item.rollOutInterval == 0 || !item.published ||
        isCritical(item, situation)) {
        return true;
    }
    // Divided, because the interval may be as large as a number can be.
    const auto age = situation.now - *item.published;
    return age >= 0 && age / item.rollOutInterval >= situation.rollOutGroup;
}

bool isSkipped(const Item& item, const Situation& situation) {
    const std::string& skipped = situation.skippedVersion;
    if (situation.check == UpdateCheck::Asked || skipped.empty() || isCritical(item, situation)) {
        return false;
    }
    const std::string& step = item.minimumAutoupdateVersion;
    if (step.empty() || !isOlder(situation.currentVersion, step)) {
        return !isOlder(skipped, item.version);
    }
    // Who skipped a big step skipped what is built on it, too, unless the feed calls it back.
    const bool isCalledBack = !item.unskippedBelow.empty() && isOlder(skipped, item.unskippedBelow);
    return !isOlder(skipped, step) && !isCalledBack;
}

bool canBeOffered(const Item& item, const Situation& situation) {
    return isOlder(situation.currentVersion, item.version) && isAllowed(item, situation) &&
           fitsTheSystem(item, situation) && isRolledOut(item, situation) &&
           (isNews(item, situation) ? isForUs(item, situation) && !item.link.empty()
                                    : archiveFor(item, situation) != nullptr);
}

} // namespace

const Item::Archive* archiveFor(const Item& item, const Situation& situation) {
    const auto found =
        std::find_if(item.archives.begin(), item.archives.end(), [&](const auto& archive) {
            return isOurs(archive.system, situation) && archive.signature && archive.length > 0 &&
                   archive.length <= situation.longestArchive;
        });
    return found == item.archives.end() ? nullptr : &*found;
}

bool isNews(const Item& item, const Situation& situation) {
    if (item.archives.empty()) {
        return true;
    }
    if (!item.news) {
        return false;
    }
    const auto& [versions, below] = *item.news;
    if (versions.empty() && below.empty()) {
        return true;
    }
    return isOlder(situation.currentVersion, below) ||
           std::any_of(versions.begin(), versions.end(), [&](const std::string& version) {
               return std::is_eq(VersionOrder::compare(situation.currentVersion, version));
           });
}

bool isCritical(const Item& item, const Situation& situation) {
    return item.urgency &&
           (item.urgency->below.empty() || isOlder(situation.currentVersion, item.urgency->below));
}

const Item* best(const std::vector<Item>& items, const Situation& situation) {
    const Item* best = nullptr;
    for (const Item& item : items) {
        if (canBeOffered(item, situation) &&
            (best == nullptr || isOlder(best->version, item.version))) {
            best = &item;
        }
    }
    return best != nullptr && !isSkipped(*best, situation) ? best : nullptr;
}

std::string newestVersion(const std::vector<Item>& items, const Situation& situation) {
    const Item* newest = nullptr;
    for (const Item& item : items) {
        if (isForUs(item, situation) &&
            (newest == nullptr || isOlder(newest->version, item.version))) {
            newest = &item;
        }
    }
    return newest == nullptr ? std::string() : newest->version;
}

} // namespace pallistrom::UpdateChoice
