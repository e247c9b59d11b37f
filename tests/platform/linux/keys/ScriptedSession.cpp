// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ScriptedSession.h"

#include "CatalogueVerdict.h"
#include "platform/linux/keys/KeyMap.h"

namespace pallistrom {

ScriptedSession::ScriptedSession(KeyDelivery::Rewritten rewritten, const ModifierTable& table)
    : delivery(table, rewritten) {}

std::string ScriptedSession::play(std::string_view script) {
    m_steps.clear();
    for (const KeyScript::Event& event : KeyScript::parse(script)) {
        put(event);
    }
    return KeyScript::print(m_steps);
}

std::string ScriptedSession::letGo() {
    m_steps.clear();
    delivery.releaseAll(m_steps);
    return KeyScript::print(m_steps);
}

void ScriptedSession::put(const KeyScript::Event& event) {
    const auto keyCode = KeyMap::virtualKeyCode(event.key);
    if (!keyCode || delivery.isModifier(event.key) || keysAreLeftAlone) {
        delivery.handle(event.key, event.action, std::nullopt, sender, m_steps);
        return;
    }
    const VerdictChords verdict = catalogueVerdict({.keyCode = *keyCode,
                                                    .flags = delivery.flags(),
                                                    .isDown = event.action != KeyAction::Release});
    delivery.handle(event.key, event.action, verdict.replacement(), sender, m_steps);
}

} // namespace pallistrom
