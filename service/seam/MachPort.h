// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventTap.h"
#include "platform/linux/KeyFilter.h"

namespace pallistrom {

/// The port of the service's event tap: while it is switched on, the keyboards have its filter.
class CFMachPort {
public:
    explicit CFMachPort(KeyFilter filter);
    CFMachPort(const CFMachPort&) = delete;
    CFMachPort& operator=(const CFMachPort&) = delete;
    ~CFMachPort();

    void setEnabled(bool enabled);

    [[nodiscard]] bool isEnabled() const { return m_isEnabled; }

private:
    KeyFilter m_filter;
    bool m_isEnabled = false;
};

} // namespace pallistrom
