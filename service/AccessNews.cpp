// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/AccessNews.h"

namespace pallistrom {

void AccessNews::update(const std::function<Access(const std::string& caller)>& accessOf,
                        const std::function<void(const std::string& caller, Access access)>& tell) {
    for (auto& [caller, told] : m_told) {
        const Access access = accessOf(caller);
        if (told != access) {
            told = access;
            tell(caller, access);
        }
    }
}

} // namespace pallistrom
