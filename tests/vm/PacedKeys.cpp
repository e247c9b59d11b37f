// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "PacedKeys.h"

#include "CatalogueReplacement.h"

#include <algorithm>

namespace pallistrom::vm {

PacedKeys::PacedKeys() : m_delivery{ModifierTable::standard(), KeyDelivery::Rewritten::Held} {}

FilteredKeyboard::Typed PacedKeys::next(const DeliveryInput& input) {
    m_delivery.handle(
        input.event.key, input.event.action, input.replacement(), input.sender, m_steps);
    count();
    return {.event = input.event, .shownSoFar = m_shown};
}

FilteredKeyboard::Typed PacedKeys::next(const KeyScript::Event& event) {
    DeliveryInput input;
    input.event = event;
    if (!m_delivery.isModifier(event.key)) {
        input.change = catalogueReplacement(event, m_delivery.flags());
    }
    return next(input);
}

void PacedKeys::letGo() {
    m_delivery.releaseAll(m_steps);
    count();
}

void PacedKeys::setModifierTable(const ModifierTable& table) {
    m_delivery.setModifierTable(table, m_steps);
    count();
}

void PacedKeys::count() {
    m_shown += static_cast<std::size_t>(
        std::count_if(m_steps.begin(), m_steps.end(), [](const OutputStep& step) {
            return step.kind != OutputStep::Kind::Pause;
        }));
    m_steps.clear();
}

} // namespace pallistrom::vm
