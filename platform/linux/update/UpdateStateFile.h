// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/UpdateState.h"

#include <filesystem>
#include <string>

namespace pallistrom {

/// The file in which the updater keeps its state: "updates.ini" in a folder.
class UpdateStateFile {
public:
    /// `folder` is made by the first save if it is missing.
    explicit UpdateStateFile(const std::filesystem::path& folder)
        : m_path(folder / "updates.ini") {}

    /// Returns what was saved last. A file that is missing says nothing; nor does one that is
    /// damaged, which is kept under another name and logged.
    [[nodiscard]] UpdateState load() const;

    /// Replaces the file as a whole, without waiting for the disk. Where that cannot be, it is
    /// logged, once until it can be again.
    void save(const UpdateState& state);

private:
    std::filesystem::path m_path;
    bool m_isInTrouble = false;
};

} // namespace pallistrom
