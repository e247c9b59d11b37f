// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace pallistrom {

/// The information list that is installed with the program: facts of this build, from JSON. Only
/// entries that are texts are in it.
class InformationList {
public:
    InformationList() = default;

    /// Reads a list. A broken one is empty.
    [[nodiscard]] static InformationList parse(std::string_view text);

    /// Reads the list of a program that lies in `programFolder`, installed or just built. Empty if
    /// there is none that can be read.
    [[nodiscard]] static InformationList ofProgramIn(const std::filesystem::path& programFolder);

    [[nodiscard]] std::optional<std::string> entry(std::string_view key) const;

private:
    std::map<std::string, std::string, std::less<>> m_entries;
};

} // namespace pallistrom
