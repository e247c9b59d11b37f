// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/UserLog.h"

#include "platform/Log.h"

namespace pallistrom {

void UserLog::say(UserId user, About about, std::string_view what) {
    std::string& said = m_said[{user, about}];
    if (said != what) {
        said = what;
        NSLog("Pallistrom: user " + std::to_string(user) + " " + said);
    }
}

} // namespace pallistrom
