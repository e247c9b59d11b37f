// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keyboardservice/KeyboardInterface.h"

#include <functional>
#include <map>
#include <string>

namespace pallistrom {

/// Who has asked for its access, and what it was told last.
class AccessNews {
public:
    using Access = KeyboardInterface::Access;

    /// `caller` was told `access`, and wants to know of changes.
    void told(const std::string& caller, Access access) { m_told.insert_or_assign(caller, access); }

    void forget(const std::string& caller) { m_told.erase(caller); }

    void forgetAll() { m_told.clear(); }

    /// Calls `tell` for each caller whose access is another than it was told.
    void update(const std::function<Access(const std::string& caller)>& accessOf,
                const std::function<void(const std::string& caller, Access access)>& tell);

private:
    std::map<std::string, Access> m_told;
};

} // namespace pallistrom
