// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/grants/GrantStore.h"

#include "platform/Log.h"

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

namespace pallistrom {

namespace {

void logFailure(const std::string& what) {
    NSLog("Pallistrom: " + what + ": " + std::generic_category().message(errno));
}

} // namespace

GrantStore::GrantStore(GrantFile file) : m_file{std::move(file)} {
    switch (m_file.load(m_grants)) {
    case GrantFile::Outcome::Done:
        break;
    case GrantFile::Outcome::Damaged:
        NSLog("Pallistrom: the file of grants is damaged and was put aside; nobody has a grant");
        break;
    case GrantFile::Outcome::Failed:
        logFailure("the file of grants cannot be read; nobody has a grant");
        break;
    }
}

void GrantStore::give(uid_t user) {
    if (grantOf(user) != Grant::Given) {
        m_grants.insert_or_assign(user, Grant::Given);
        store();
    }
}

void GrantStore::withdraw(uid_t user) {
    if (m_grants.erase(user) != 0) {
        store();
    }
}

void GrantStore::suspend(uid_t user) {
    replace(user, Grant::Suspended);
}

void GrantStore::resume(uid_t user) {
    replace(user, Grant::Given);
}

void GrantStore::replace(uid_t user, Grant grant) {
    const auto found = m_grants.find(user);
    if (found != m_grants.end() && found->second != grant) {
        found->second = grant;
        store();
    }
}

void GrantStore::store() const {
    if (m_file.store(m_grants) != GrantFile::Outcome::Done) {
        logFailure("the grants cannot be written and hold until the service ends");
    }
}

} // namespace pallistrom
