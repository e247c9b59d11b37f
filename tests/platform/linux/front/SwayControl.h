// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FileDescriptor.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace pallistrom {

/// Has sway do something, as swaymsg(1) does, but without a new process each time. Throws
/// std::runtime_error where sway does not answer.
class SwayControl {
public:
    /// `runtimeFolder` is where the socket is.
    explicit SwayControl(const std::filesystem::path& runtimeFolder);

    /// Runs a command of sway(5). Returns whether it succeeded.
    [[nodiscard]] bool run(std::string_view command);

    /// Returns the windows and what holds them, as JSON.
    [[nodiscard]] std::string tree();

private:
    [[nodiscard]] std::string ask(std::uint32_t kind, std::string_view text);

    FileDescriptor m_socket;
};

} // namespace pallistrom
