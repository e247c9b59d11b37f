// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/SettingsChanges.h"

#include <utility>

namespace pallistrom::SettingsChanges {

namespace {

std::function<void()>& theObserver() {
    static std::function<void()> observer;
    return observer;
}

} // namespace

void setObserver(std::function<void()> observer) {
    theObserver() = std::move(observer);
}

void tell() {
    if (theObserver()) {
        theObserver()();
    }
}

} // namespace pallistrom::SettingsChanges
