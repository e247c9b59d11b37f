// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/StatusItem.h"

#include "platform/Precondition.h"
#include "platform/linux/statusitem/TrayStatusItem.h"

namespace pallistrom {

NSStatusItemRef statusItemWithLength(double length) {
    precondition(length == NSVariableStatusItemLength, "a status item of a fixed length");
    return std::make_shared<TrayStatusItem>();
}

} // namespace pallistrom
