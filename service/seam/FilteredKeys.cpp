// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/seam/FilteredKeys.h"

namespace pallistrom {

FilteredKeys*& FilteredKeys::current() {
    static constinit FilteredKeys* keys = nullptr;
    return keys;
}

} // namespace pallistrom
