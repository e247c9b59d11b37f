// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/seam/SwitchDefaults.h"

namespace pallistrom {

UserDefaults& UserDefaults::standardUserDefaults() {
    static SwitchDefaults defaults;
    return defaults;
}

bool SwitchDefaults::boolForKey(std::string_view key) const {
    const auto found = m_values.find(key);
    return found != m_values.end() && found->second.stored.value_or(found->second.registered);
}

void SwitchDefaults::setBoolForKey(bool value, std::string_view key) {
    const auto found = m_values.find(key);
    if (found != m_values.end()) {
        found->second.stored = value;
    }
}

void SwitchDefaults::registerDefaults(const Registration& defaults) {
    for (const auto& [key, value] : defaults) {
        m_values[key].registered = value;
    }
}

} // namespace pallistrom
