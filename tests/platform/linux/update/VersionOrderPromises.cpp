// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "VersionOrderPromises.h"

#include "platform/linux/update/VersionOrder.h"

namespace pallistrom::VersionOrder {

std::string brokenPromise(std::string_view first, std::string_view second, std::string_view third) {
    if (compare(first, first) != 0) {
        return "a version is as new as itself";
    }
    if ((compare(first, second) < 0) != (compare(second, first) > 0)) {
        return "of two versions one is newer, whichever comes first";
    }
    if (compare(first, second) <= 0 && compare(second, third) <= 0 && compare(first, third) > 0) {
        return "what is newer than a newer version is newer";
    }
    const std::string longer = std::string(first) + ".0";
    if (first.find('-') == std::string_view::npos && compare(first, longer) != 0) {
        return "zeros at the end do not count";
    }
    if (compare(std::string(first) + "-" + std::string(second), first) != 0) {
        return "what follows a dash does not count";
    }
    return {};
}

} // namespace pallistrom::VersionOrder
