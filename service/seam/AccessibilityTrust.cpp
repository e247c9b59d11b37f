// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/AccessibilityTrust.h"

#include "service/seam/FilteredKeys.h"

namespace pallistrom {

bool AXIsProcessTrusted() {
    const FilteredKeys* const keys = FilteredKeys::current();
    return keys != nullptr && keys->mayBeFiltered();
}

// The service asks people elsewhere, in the name of the desktop program that wants it.
bool AXIsProcessTrustedWithOptions(const std::map<std::string_view, bool>& /*options*/) {
    return AXIsProcessTrusted();
}

} // namespace pallistrom
