// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/Application.h"

#include "platform/Precondition.h"
#include "platform/linux/application/QtApplication.h"

namespace pallistrom {

namespace {

QtApplication* theApplication = nullptr;

} // namespace

Application& Application::sharedApplication(int& argc, char** argv) {
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
