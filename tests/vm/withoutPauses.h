// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <sstream>
#include <string>

namespace pallistrom::vm {

/// Returns what is to go out by a script of expectations, without the pauses: a session sees keys.
inline std::string withoutPauses(const std::string& script) {
    std::string keys;
    std::istringstream words{script};
    for (std::string word; words >> word;) {
        if (word != ".") {
            keys += keys.empty() ? "" : " ";
            keys += word;
        }
    }
    return keys;
}

} // namespace pallistrom::vm
