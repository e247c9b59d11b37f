// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/seam/MachPort.h"

#include "service/seam/FilteredKeys.h"

#include <utility>

namespace pallistrom {

CFMachPort::CFMachPort(KeyFilter filter) : m_filter(std::move(filter)) {}

CFMachPort::~CFMachPort() {
    setEnabled(false);
}

void CFMachPort::setEnabled(bool enabled) {
    FilteredKeys* const keys = FilteredKeys::current();
    if (keys == nullptr || enabled == m_isEnabled) {
        return;
    }
    m_isEnabled = enabled;
    keys->setFilter(enabled ? &m_filter : nullptr);
}

} // namespace pallistrom
