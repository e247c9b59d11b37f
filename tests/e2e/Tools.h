// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <string>

namespace pallistrom::e2e {

/// What keeps the tests from running, as a reason to skip them: "not installed: Xvfb". Empty if
/// every one of `programs`, given by path or looked up on the PATH, is there.
std::string missingPrograms(std::initializer_list<std::string> programs);

} // namespace pallistrom::e2e
