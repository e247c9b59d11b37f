// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace pallistrom {

/// The application's settings of this user: a store of booleans that survives restarts, over a
/// layer of registered defaults that does not.
///
/// No operation reports an error. A value that cannot be stored is kept for the life of the
/// process, and the system log has one line about it.
class UserDefaults {
public:
    /// Values for keys that nobody has stored.
    using Registration = std::map<std::string, bool, std::less<>>;

    UserDefaults() = default;
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;
    virtual ~UserDefaults() = default;

    /// The one store of this application.
    static UserDefaults& standardUserDefaults();

    /// Returns the value that is stored for `key`, else the one registered for it in this process,
    /// else false. Allocates nothing.
    [[nodiscard]] virtual bool boolForKey(std::string_view key) const = 0;

    /// Stores `value`. The next read in this process sees it.
    virtual void setBoolForKey(bool value, std::string_view key) = 0;

    /// Merges `defaults` into the registered layer; a key that is there already takes the new
    /// value.
    virtual void registerDefaults(const Registration& defaults) = 0;
};

} // namespace pallistrom
