// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/grants/GrantFile.h"
#include "service/grants/Grants.h"

#include <optional>

namespace pallistrom {

/// The grants of all users, kept in memory and, as well as the disk lets us, in a file. What cannot
/// be written holds until the service ends; the log has a line about it.
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

private:
    void replace(uid_t user, Grant grant);
    void store() const;

    GrantFile m_file;
    Grants m_grants;
};

} // namespace pallistrom
