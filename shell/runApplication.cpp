// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "shell/runApplication.h"

#include "platform/Application.h"
#include "shell/AppDelegate.h"

namespace pallistrom {

namespace {

// The application does not own its delegate; this keeps it alive. Never destroyed: its windows
// would go after what the toolkit keeps in global objects, which they need for that.
std::shared_ptr<AppDelegate>& delegate = *new std::shared_ptr<AppDelegate>;

} // namespace

int runApplication(int argc, char** argv) {
    Application& app = Application::sharedApplication(argc, argv);
    delegate = std::make_shared<AppDelegate>();
    app.setDelegate(delegate);
    app.setActivationPolicy(NSApplicationActivationPolicy::NSApplicationActivationPolicyAccessory);
    return app.run();
}

} // namespace pallistrom
