// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FakePlatform.h"
#include "platform/Application.h"
#include "platform/Precondition.h"

namespace pallistrom {

namespace {

using fake::Platform;

class FakeApplication final : public Application {
public:
    void setDelegate(const std::weak_ptr<ApplicationDelegate>& delegate) override {
        Platform::current().calls.emplace_back("setDelegate");
        Platform::current().delegate = delegate;
    }

    void setActivationPolicy(NSApplicationActivationPolicy policy) override {
        Platform::current().calls.emplace_back("setActivationPolicy");
        Platform::current().activationPolicies.push_back(policy);
    }

    void activateIgnoringOtherApps(bool flag) override {
        precondition(flag, "asked to stay behind others");
        Platform::current().calls.emplace_back("activateIgnoringOtherApps");
        ++Platform::current().activations;
    }

    void terminate() override { Platform::current().terminated = true; }

    int run() override {
        Platform::current().calls.emplace_back("run");
        if (const auto delegate = Platform::current().delegate.lock()) {
            delegate->applicationDidFinishLaunching();
        }
        return 0;
    }
};

FakeApplication application;

} // namespace

Application& Application::sharedApplication(int& /*argc*/, char** /*argv*/) {
    Platform::current().calls.emplace_back("sharedApplication");
    return application;
}

Application& Application::sharedApplication() {
    return application;
}

} // namespace pallistrom
