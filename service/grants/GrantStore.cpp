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
    case GrantFile::Loaded::Done:
        break;
    case GrantFile::Loaded::Damaged:
        NSLog("Pallistrom: the file of grants is damaged and was put aside; nobody has a grant");
        break;
    case GrantFile::Loaded::Failed:
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
    m_isToBeSaved = m_grants.erase(user) != 0 || m_isToBeSaved;
}

void GrantStore::suspend(uid_t user) {
    if (grantOf(user) == Grant::Given) {
        m_grants.insert_or_assign(user, Grant::Suspended);
        m_isToBeSaved = true;
    }
}

void GrantStore::resume(uid_t user) {
    if (grantOf(user) == Grant::Suspended) {
        m_grants.insert_or_assign(user, Grant::Given);
        store();
    }
}

void GrantStore::save() {
    if (!std::exchange(m_isToBeSaved, false)) {
        return;
    }
    switch (m_file.storeLess(m_grants)) {
    case GrantFile::Stored::Done:
        break;
    case GrantFile::Stored::Removed:
        logFailure("the grants cannot be written and end with the service; their file was removed");
        break;
    case GrantFile::Stored::Failed:
        logFailure("the file of grants can neither be written nor removed");
        break;
    }
}

void GrantStore::store() {
    if (m_file.store(m_grants) == GrantFile::Stored::Done) {
        m_isToBeSaved = false;
    } else {
        logFailure("the grants cannot be written and hold until the service ends");
    }
}

} // namespace pallistrom
