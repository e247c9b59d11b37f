// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/Filter.h"

#include "engine/Preferences.h"
#include "engine/ShortcutLibrary.h"
#include "platform/Log.h"

#include <utility>

namespace pallistrom {

void Filter::update() {
    applySleep(m_state.login.isGoingToSleep);
    const FilterSituation now = situation();
    const auto hindrance = hindranceTo(now);
    if (!hindrance) {
        // Before the keys: the first of them shall meet the switches of its own user.
        applyWish(m_state.users.wishOf(now.login.active->user));
    }
    if (m_isAllowed != !hindrance) {
        m_isAllowed = !hindrance;
        m_keys.setAllowed(m_isAllowed);
    }
    if (m_isAllowed) {
        m_tap.ensureRunning();
    }
    tell(hindrance);
}

FilterSituation Filter::situation() const {
    FilterSituation situation;
    situation.isKeyboardPossible = m_keys.canMakeKeyboards();
    situation.login = m_state.login;
    if (const auto& active = m_state.login.active) {
        situation.grant = m_state.grants.grantOf(active->user);
        situation.isWanted = m_state.users.wantsTap(active->user);
    }
    return situation;
}

void Filter::applySleep(bool isGoingToSleep) {
    if (std::exchange(m_isAsleep, isGoingToSleep) == isGoingToSleep) {
        return;
    }
    if (isGoingToSleep) {
        m_keys.aboutToSleep();
    } else {
        m_keys.awake();
    }
}

void Filter::applyWish(const UserWish& wish) {
    if (m_wish == wish) {
        return;
    }
    std::uint32_t bit = 1;
    for (const ShortcutDef& shortcut : ShortcutLibrary::all) {
        Preferences::setEnabled(shortcut.id, (wish.switches & bit) != 0);
        bit <<= 1U;
    }
    m_keys.setModifierTable(wish.modifiers);
    m_keys.setFrontApplication(wish.front);
    m_wish = wish;
}

void Filter::tell(std::optional<Hindrance> hindrance) {
    const std::string status =
        hindrance ? std::string{"filtering no keys: "}.append(describe(*hindrance))
                  : "filtering the keys of user " + std::to_string(m_state.login.active->user);
    if (status != m_status) {
        m_status = status;
        NSLog("Pallistrom: " + status);
    }
}

} // namespace pallistrom
