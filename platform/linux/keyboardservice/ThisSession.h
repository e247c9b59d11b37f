// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// The session that this program runs in, as the login manager sees it.
namespace pallistrom::ThisSession {

/// Returns the login manager's name for it; an empty string where there is no login manager, and
/// where the environment names a session that has ended or is none of a person's.
[[nodiscard]] std::string name();

} // namespace pallistrom::ThisSession
