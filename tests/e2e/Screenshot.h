// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace pallistrom::e2e {

/// Saves what the X display `display` shows as a picture. Throws std::runtime_error if it cannot.
void saveScreenshot(const std::string& display, const std::filesystem::path& picture);

} // namespace pallistrom::e2e
