// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "engine/Preferences.h"

#include "platform/UserDefaults.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace pallistrom::Preferences {

namespace {

// The key of a switch, for the time of one call. It is asked for on every key press, hence no heap:
// only an id longer than any of ours goes there.
class SwitchKey {
public:
    explicit SwitchKey(std::string_view id) {
        constexpr std::string_view before = "shortcut.";
        constexpr std::string_view after = ".enabled";
        const std::size_t size = before.size() + id.size() + after.size();
        char* end = m_room.data();
        if (size > m_room.size()) {
            m_longText.resize(size);
            end = m_longText.data();
        }
        m_text = {end, size};
        end += before.copy(end, before.size());
        end += id.copy(end, id.size());
        after.copy(end, after.size());
    }

    SwitchKey(const SwitchKey&) = delete;
    SwitchKey& operator=(const SwitchKey&) = delete;
    ~SwitchKey() = default;

    [[nodiscard]] std::string_view text() const { return m_text; }

private:
    std::array<char, 128> m_room; // Not cleared: that would cost more than all the rest.
    std::string m_longText;
    std::string_view m_text; ///< in one of the two
};

} // namespace

std::string key(std::string_view id) {
    return std::string(SwitchKey(id).text());
}

void registerDefaults(std::span<const ShortcutDef> shortcuts) {
    UserDefaults::Registration defaults{{std::string(onboardingKey), false}};
    for (const ShortcutDef& shortcut : shortcuts) {
        defaults.insert_or_assign(key(shortcut.id), shortcut.defaultEnabled);
    }
    UserDefaults::standardUserDefaults().registerDefaults(defaults);
}

bool isEnabled(std::string_view id) {
    return UserDefaults::standardUserDefaults().boolForKey(SwitchKey(id).text());
}

void setEnabled(std::string_view id, bool enabled) {
    UserDefaults::standardUserDefaults().setBoolForKey(enabled, SwitchKey(id).text());
}

bool hasCompletedOnboarding() {
    return UserDefaults::standardUserDefaults().boolForKey(onboardingKey);
}

void setHasCompletedOnboarding(bool completed) {
    UserDefaults::standardUserDefaults().setBoolForKey(completed, onboardingKey);
}

} // namespace pallistrom::Preferences
