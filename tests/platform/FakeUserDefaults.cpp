// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FakePlatform.h"
#include "platform/UserDefaults.h"

namespace pallistrom {

namespace {

using fake::Platform;

class FakeUserDefaults final : public UserDefaults {
public:
    bool boolForKey(std::string_view key) const override {
        const auto& platform = Platform::current();
        if (platform.recordsReads) {
            platform.defaultsRead.emplace_back(key);
        }
        for (const auto* layer : {&platform.storedDefaults, &platform.registeredDefaults}) {
            if (const auto found = layer->find(key); found != layer->end()) {
                return found->second;
            }
        }
        return false;
    }

    void setBoolForKey(bool value, std::string_view key) override {
        Platform::current().storedDefaults.insert_or_assign(std::string(key), value);
    }

    void registerDefaults(const Registration& defaults) override {
        auto& platform = Platform::current();
        platform.calls.emplace_back("registerDefaults");
        ++platform.registrations;
        for (const auto& [key, value] : defaults) {
            platform.registeredDefaults.insert_or_assign(key, value);
        }
    }
};

} // namespace

UserDefaults& UserDefaults::standardUserDefaults() {
    static FakeUserDefaults defaults;
    return defaults;
}

} // namespace pallistrom
