// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/LoginItem.h"

#include "platform/linux/loginitem/AutostartFile.h"

namespace pallistrom {

namespace {

AutostartFile& theFile() {
    static AutostartFile file(AutostartPlaces::ofSession());
    return file;
}

} // namespace

SMAppService SMAppService::mainAppService() {
    return {};
}

// The service is an object on the platform that named it, and has its one state elsewhere here.
// NOLINTBEGIN(readability-convert-member-functions-to-static)
SMAppServiceStatus SMAppService::status() const {
    return theFile().status();
}

std::optional<NSError> SMAppService::registerAndReturnError() const {
    return theFile().enable();
}

std::optional<NSError> SMAppService::unregisterAndReturnError() const {
    return theFile().disable();
}

// NOLINTEND(readability-convert-member-functions-to-static)

} // namespace pallistrom
