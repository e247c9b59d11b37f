// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Screenshot.h"

#include "ChildProcess.h"
#include "Home.h"

namespace pallistrom::e2e {

void saveScreenshot(const std::string& display, const std::filesystem::path& picture) {
    const Home home;
    run({.arguments = {"import", "-window", "root", picture},
         .environment = home.environment(display)});
}

} // namespace pallistrom::e2e
