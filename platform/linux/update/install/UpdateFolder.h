// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <vector>

namespace pallistrom {

/// The folder in which a new version is made ready, beside the program's own so that it is on the
/// same file system. What an installation that was interrupted has left is known by its name.
class UpdateFolder {
public:
    /// Makes a new one for the program in `topFolder`. Nothing, and errno, if that cannot be done.
    [[nodiscard]] static std::optional<UpdateFolder> make(const std::filesystem::path& topFolder);

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    /// Where the new version is unpacked; after the exchange, where the old one is.
    [[nodiscard]] std::filesystem::path content() const { return m_path / "content"; }

    /// Where the old version lies for a moment if it cannot be exchanged at one stroke.
    [[nodiscard]] std::filesystem::path aside() const { return m_path / "aside"; }

    /// Returns those that earlier installations of the program in `topFolder` have left. Where one
    /// was interrupted between two steps of an exchange and the program is the one that was laid
    /// aside, it is put back first: `topFolder` is changed to where it is then.
    [[nodiscard]] static std::vector<std::filesystem::path>
    leftBeside(std::filesystem::path& topFolder);

private:
    explicit UpdateFolder(std::filesystem::path path) : m_path(std::move(path)) {}

    std::filesystem::path m_path;
};

} // namespace pallistrom
