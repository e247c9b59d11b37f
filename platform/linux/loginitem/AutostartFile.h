// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LoginItem.h"
#include "platform/linux/FileStamps.h"
#include "platform/linux/SmallFile.h"
#include "platform/linux/loginitem/AutostartPlaces.h"
#include "platform/linux/loginitem/LoginItemRules.h"

#include <optional>
#include <string>

namespace pallistrom {

/// The autostart entry of this program on the disk: looks at it, writes and removes it. What it
/// means is for LoginItemRules to say.
///
/// A write replaces the file as a whole or leaves it as it was. An entry that is damaged is kept
/// under another name. Main thread only; waits for nobody.
class AutostartFile {
public:
    explicit AutostartFile(AutostartPlaces places);
    AutostartFile(const AutostartFile&) = delete;
    AutostartFile& operator=(const AutostartFile&) = delete;
    ~AutostartFile() = default;

    /// Returns whether we start at the next login. Meant to be asked often: as long as nothing has
    /// changed it costs one system call for each file that matters: two if there is an entry, ours
    /// and the program, and a few more if there is none.
    [[nodiscard]] SMAppServiceStatus status();

    /// Make us start, or no more. Return what stood in the way.
    [[nodiscard]] std::optional<NSError> enable();
    [[nodiscard]] std::optional<NSError> disable();

private:
    void forget();
    [[nodiscard]] SMAppServiceStatus look();
    [[nodiscard]] SmallFile read(const std::filesystem::path& path);
    [[nodiscard]] std::optional<SmallFile> systemEntry();
    [[nodiscard]] bool canBeMade();
    [[nodiscard]] LoginItemRules::Program find(const std::string& name);
    [[nodiscard]] LoginItemRules::Program judge(const std::filesystem::path& candidate);
    [[nodiscard]] std::optional<NSError> unusable(SmallFile::State state) const;
    [[nodiscard]] std::optional<NSError> write(const std::string& text) const;
    [[nodiscard]] std::optional<NSError> replaceDamaged(const std::string& text) const;
    [[nodiscard]] std::optional<NSError> remove() const;

    AutostartPlaces m_places;
    LoginItemRules::Session m_session;
    FileStamps m_basis;                         ///< what m_status rests on
    std::optional<SMAppServiceStatus> m_status; ///< the last answer, if a change of it can be seen
};

} // namespace pallistrom
