// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserDefaults.h"

#include <optional>
#include <string>
#include <string_view>

namespace pallistrom {

/// The user defaults of the service: what was registered at its start, and what it was told since.
/// In memory only, and for registered keys only.
class SwitchDefaults final : public UserDefaults {
public:
    [[nodiscard]] bool boolForKey(std::string_view key) const override;
    void setBoolForKey(bool value, std::string_view key) override;
    void registerDefaults(const Registration& defaults) override;

private:
    struct Value {
        bool registered = false;
        std::optional<bool> stored;
    };

    std::map<std::string, Value, std::less<>> m_values;
};

} // namespace pallistrom
