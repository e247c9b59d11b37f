// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/clients/UserLog.h"

#include "platform/Log.h"

namespace pallistrom {

void UserLog::say(UserId user, About about, std::string_view what) {
    if (m_said.size() >= mostRemembered && !m_said.contains({user, about})) {
        m_said.clear();
    }
    std::string& said = m_said[{user, about}];
    if (said != what) {
        said = what;
        NSLog("Pallistrom: user " + std::to_string(user) + " " + said);
    }
}

} // namespace pallistrom
