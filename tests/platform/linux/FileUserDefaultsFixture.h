// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "EventLoop.h"
#include "RecordedLog.h"
#include "SettingsFolder.h"
#include "platform/linux/FileUserDefaults.h"
#include "platform/linux/SettingsChanges.h"

#include <gtest/gtest.h>

#include <memory>
#include <string_view>

namespace pallistrom {

/// Runs of a program that has its user defaults in a folder of the test's own.
class FileUserDefaultsFixture : public testing::Test {
public:
    FileUserDefaultsFixture() {
        RecordedLog::take();
        SettingsChanges::setObserver([this] { ++tells; });
    }

    FileUserDefaultsFixture(const FileUserDefaultsFixture&) = delete;
    FileUserDefaultsFixture& operator=(const FileUserDefaultsFixture&) = delete;

    ~FileUserDefaultsFixture() override { SettingsChanges::setObserver({}); }

protected:
    /// Starts the program, again if it runs already.
    FileUserDefaults& start() {
        m_defaults.reset();
        m_defaults = std::make_unique<FileUserDefaults>(folder.name());
        tells = 0;
        return *m_defaults;
    }

    /// Returns whether the running program comes to see `value` without being asked to look.
    bool comesToSee(bool value, std::string_view key) {
        return loop.runUntil([&] { return m_defaults->boolForKey(key) == value; });
    }

    EventLoop loop;
    SettingsFolder folder;
    int tells = 0; ///< how often the tap has been told of a change since the start

private:
    std::unique_ptr<FileUserDefaults> m_defaults;
};

} // namespace pallistrom
