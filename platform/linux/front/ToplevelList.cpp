// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/ToplevelList.h"

namespace pallistrom {

bool ToplevelList::add(Id id) {
    return m_windows.size() < most && m_windows.try_emplace(id).second;
}

void ToplevelList::setApplication(Id id, std::string_view name) {
    if (const auto found = m_windows.find(id); found != m_windows.end()) {
        found->second.pending.application = name.substr(0, WindowClass::mostBytes);
    }
}

void ToplevelList::setActivated(Id id, bool isActivated) {
    if (const auto found = m_windows.find(id); found != m_windows.end()) {
        found->second.pending.isActivated = isActivated;
    }
}

void ToplevelList::commit(Id id) {
    if (const auto found = m_windows.find(id); found != m_windows.end()) {
        commit(found->second);
    }
}

void ToplevelList::commitAll() {
    for (auto& [id, window] : m_windows) {
        commit(window);
    }
}

void ToplevelList::remove(Id id) {
    m_windows.erase(id);
}

FrontReport ToplevelList::report() const {
    const Window* front = nullptr;
    for (const auto& [id, window] : m_windows) {
        if (window.current.isActivated &&
            (front == nullptr || window.activation > front->activation)) {
            front = &window;
        }
    }
    return front == nullptr ? FrontReport::nobody()
                            : FrontReport::of({.instance = {}, .name = front->current.application});
}

void ToplevelList::commit(Window& window) {
    if (window.pending.isActivated && !window.current.isActivated) {
        window.activation = ++m_activations;
    }
    window.current = window.pending;
}

} // namespace pallistrom
