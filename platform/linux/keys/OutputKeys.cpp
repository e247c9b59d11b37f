// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keys/OutputKeys.h"

namespace pallistrom {

void OutputKeys::press(EvdevCode key) {
    if (key < m_down.size() && !m_down[key]) {
        m_down.set(key);
        m_steps->push_back({OutputStep::Kind::Press, key});
    }
}

void OutputKeys::release(EvdevCode key) {
    if (isDown(key)) {
        m_down.reset(key);
        m_steps->push_back({OutputStep::Kind::Release, key});
    }
}

void OutputKeys::pause() {
    if (m_steps->empty() || m_steps->back().kind == OutputStep::Kind::Pause) {
        return;
    }
    m_steps->push_back({OutputStep::Kind::Pause, 0});
}

} // namespace pallistrom
