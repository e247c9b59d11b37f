// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "OpenSsl.h"

#include "ChildProcess.h"
#include "Environment.h"

#include <stdexcept>
#include <utility>

namespace pallistrom {

bool OpenSsl::isThere() {
    try {
        run({"version"});
        return true;
    } catch (const std::runtime_error&) {
        return false;
    }
}

void OpenSsl::run(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "openssl");
    pallistrom::run({.arguments = std::move(arguments),
                     .environment = {{"PATH", Environment::value("PATH")}},
                     .errorFile = "/dev/null"});
}

} // namespace pallistrom
