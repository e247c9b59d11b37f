// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keyboardservice/ServiceTap.h"

#include <utility>

namespace pallistrom {

ServiceTap::ServiceTap(KeyboardService& service, Session session)
    : m_service(service), m_session(std::move(session)) {
    QObject::connect(
        &m_service, &KeyboardService::changed, &m_context, [this] { serviceChanged(); });
}

bool ServiceTap::start(KeyFilter& filter) {
    if (!canRun()) {
        return false;
    }
    m_filter = &filter;
    m_told = {};
    m_front = m_session.watchFront([this] { mirror(); });
    m_keys = m_session.watchKeys([this] { mirror(); });
    mirror();
    return true;
}

void ServiceTap::stop() {
    if (m_filter == nullptr) {
        return;
    }
    m_filter = nullptr;
    m_front.reset();
    m_keys.reset();
    // Not only where the tap has been told: a service that comes back may know it from before.
    m_service.setTap(false);
}

bool ServiceTap::isRunning() const {
    return m_filter != nullptr && !m_service.obstacle();
}

void ServiceTap::serviceChanged() {
    if (m_service.obstacle()) {
        m_told = {};
    } else {
        mirror();
    }
}

std::uint32_t ServiceTap::switches() {
    std::uint32_t switches = 0;
    std::uint32_t bit = 1;
    for (const TappedKey& key : m_filter->tappedKeys()) {
        switches |= m_filter->wouldTouch(key) ? bit : 0;
        bit <<= 1U;
    }
    return switches;
}

void ServiceTap::mirror() {
    if (!isRunning()) {
        return;
    }
    if (const auto now = switches(); m_told.switches != now) {
        m_told.switches = now;
        m_service.setSwitches(now);
    }
    if (const ModifierTable& now = m_keys->modifiers(); m_told.modifiers != now) {
        m_told.modifiers = now;
        m_service.setModifiers(now);
    }
    // Where nobody can tell, it is most likely one of the many that take editing keys.
    if (const auto now = m_front->application().value_or(FrontApplication::TakesEditingKeys);
        m_told.front != now) {
        m_told.front = now;
        m_service.setFrontApplication(now);
    }
    if (!std::exchange(m_told.tap, true)) {
        m_service.setTap(true);
    }
}

} // namespace pallistrom
