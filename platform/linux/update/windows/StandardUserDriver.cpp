// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/Application.h"
#include "platform/linux/SessionPaths.h"
#include "platform/linux/update/windows/SoftwareCentre.h"
#include "platform/linux/update/windows/UpdateConversation.h"

namespace pallistrom {

std::unique_ptr<UpdateUserDriver> UpdateUserDriver::standardUserDriver() {
    return std::make_unique<UpdateConversation>(UpdateConversation::Desktop{
        .comeToFront = [] { Application::sharedApplication().activateIgnoringOtherApps(true); },
        .hasSoftwareCentre = [] { return SoftwareCentre::exists(SessionPaths::dataFolders()); },
        .openSoftwareCentre = SoftwareCentre::open});
}

} // namespace pallistrom
