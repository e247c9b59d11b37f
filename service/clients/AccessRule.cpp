// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/clients/AccessRule.h"

namespace pallistrom {

KeyboardInterface::Access accessOf(UserId user,
                                   std::optional<Grant> grant,
                                   const LoginState& login,
                                   bool isKeyboardPossible) {
    using KeyboardInterface::Access;
    if (!login.localUsers.contains(user)) {
        return Access::NotLocal;
    }
    if (!isKeyboardPossible) {
        return Access::NoKeyboard;
    }
    if (!grant) {
        return Access::NotGranted;
    }
    return *grant == Grant::Suspended ? Access::Panicked : Access::Granted;
}

} // namespace pallistrom
