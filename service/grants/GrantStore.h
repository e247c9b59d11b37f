// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/grants/GrantFile.h"
#include "service/grants/Grants.h"

#include <optional>

namespace pallistrom {

/// The grants of all users, kept in memory and, as well as the disk lets us, in a file. What was
/// given and cannot be written holds until the service ends; the log has a line about it. What was
/// taken away does not come back for the disk's sake.
class GrantStore {
public:
    /// Loads what is there.
    explicit GrantStore(GrantFile file);

    [[nodiscard]] std::optional<Grant> grantOf(uid_t user) const {
        return pallistrom::grantOf(m_grants, user);
    }

    [[nodiscard]] bool isEmpty() const { return m_grants.empty(); }

    void give(uid_t user);

    /// Does nothing for users without a grant, as the next two.
    void withdraw(uid_t user);

    /// Keeps the grant, but for the time being it counts for nothing.
    void suspend(uid_t user);

    void resume(uid_t user);

    /// Whether a grant was withdrawn or suspended and the file does not say so yet. These two are
    /// not written at once: whoever takes a grant away does not wait for a disk.
    [[nodiscard]] bool isToBeSaved() const { return m_isToBeSaved; }

    /// Writes what is to be saved, if anything is.
    void save();

private:
    void store();

    GrantFile m_file;
    Grants m_grants;
    bool m_isToBeSaved = false;
};

} // namespace pallistrom
