// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

/// Whether a folder that was unpacked can take the place of the program that runs.
namespace pallistrom::NewProgram {

enum class Verdict : std::uint8_t {
    Fits,
    Incomplete,   ///< not laid out as the program is, or no program
    OtherVersion, ///< than was offered
    OtherMachine, ///< not for the processor of the program that runs
};

/// Looks at `folder`. `running` is the file of the program that runs.
[[nodiscard]] Verdict examine(const std::filesystem::path& folder,
                              const std::string& offeredVersion,
                              const std::filesystem::path& running);

/// Prepares `process` to start the program in `folder` for a moment, in which it shows nothing and
/// ends with status 0 if all of its libraries are here.
void prepareTrial(QProcess& process, const std::filesystem::path& folder);

/// Returns for which processors the program is whose file begins with `header`; empty if it is no
/// program. Form: ELF.
[[nodiscard]] std::string machineIn(std::string_view header);

} // namespace pallistrom::NewProgram
