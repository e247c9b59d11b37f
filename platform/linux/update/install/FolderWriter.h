// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/OwnedDescriptor.h"
#include "platform/linux/update/install/ArchiveRules.h"
#include "platform/linux/update/install/TarReader.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace pallistrom {

/// Writes what an archive holds into a folder of its own, by the rules for archives. Follows no
/// link, replaces nothing, and gives nobody more rights than other new files have.
class FolderWriter final : public TarReader::Receiver {
public:
    /// `folder` is there, and empty.
    explicit FolderWriter(const std::filesystem::path& folder);

    [[nodiscard]] bool begin(const TarEntry& entry) override;
    [[nodiscard]] bool addBytes(std::string_view bytes) override;
    [[nodiscard]] bool end() override;

    /// What the system had to say when it did not go on: as errno numbers it; 0 if it was against
    /// the rules.
    [[nodiscard]] int error() const { return m_error; }

private:
    [[nodiscard]] OwnedDescriptor openFolder(std::string_view place);
    [[nodiscard]] bool failed();

    ArchiveRules m_rules;
    OwnedDescriptor m_folder;
    OwnedDescriptor m_file; ///< that is being written
    int m_error = 0;
};

} // namespace pallistrom
