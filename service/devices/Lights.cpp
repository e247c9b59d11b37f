// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/devices/Lights.h"

namespace pallistrom {

void Lights::start(const Lit& lit) {
    m_lit = lit;
    m_echoes.fill(0);
}

bool Lights::switchedBySession(std::uint16_t light, bool on) {
    if (light >= LED_CNT || m_lit[light] == on) {
        return false;
    }
    m_lit[light] = on;
    ++m_echoes.at(light);
    return true;
}

bool Lights::changedOnKeyboard(std::uint16_t light, bool on) {
    if (light >= LED_CNT) {
        return false;
    }
    if (m_echoes.at(light) > 0) {
        --m_echoes.at(light);
        return false;
    }
    m_lit[light] = on;
    return true;
}

} // namespace pallistrom
