// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

namespace pallistrom {

namespace fake {
class Platform;
}

/// Returns every text of the windows that the system may translate.
const std::vector<std::string_view>& windowTexts();

/// Makes each of them a third longer, as German does.
void lengthenTexts(fake::Platform& platform);

} // namespace pallistrom
