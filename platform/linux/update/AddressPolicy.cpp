// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/AddressPolicy.h"

#include <QString>
#include <QUrl>

namespace pallistrom {

namespace {

bool isComplete(const QUrl& address) {
    // Names and passwords in addresses serve to make them look like others.
    return address.isValid() && !address.host().isEmpty() && address.userInfo().isEmpty();
}

} // namespace

bool isLoopback(const QUrl& address) {
    const QString host = address.host();
    return host == QLatin1String("127.0.0.1") || host == QLatin1String("::1");
}

bool mayFetch(const QUrl& address, AddressPolicy policy) {
    const QString scheme = address.scheme();
    return isComplete(address) && (scheme == QLatin1String("https") ||
                                   (policy == AddressPolicy::LoopbackToo &&
                                    scheme == QLatin1String("http") && isLoopback(address)));
}

AddressPolicy policyForFeed(const QUrl& feed) {
    return isLoopback(feed) ? AddressPolicy::LoopbackToo : AddressPolicy::SecureOnly;
}

} // namespace pallistrom
