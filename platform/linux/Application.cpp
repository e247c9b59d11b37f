// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/Application.h"

#include "platform/Precondition.h"
#include "platform/linux/application/CommandLine.h"
#include "platform/linux/application/QtApplication.h"

#include <cstdio>
#include <cstdlib>

namespace pallistrom {

namespace {

QtApplication* theApplication = nullptr;

} // namespace

Application& Application::sharedApplication(int& argc, char** argv) {
    if (const auto answer = CommandLine::answer({argv, static_cast<std::size_t>(argc)})) {
        std::puts(answer->c_str());
        std::exit(EXIT_SUCCESS); // NOLINT(concurrency-mt-unsafe): there is no other thread yet.
    }
    // Never destroyed: that would be after what Qt keeps in global objects, which it needs for
    // that.
    theApplication = new QtApplication(argc, argv);
    return *theApplication;
}

Application& Application::sharedApplication() {
    return qtApplication();
}

QtApplication& qtApplication() {
    precondition(theApplication != nullptr, "no application object");
    return *theApplication;
}

} // namespace pallistrom
