// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "TemporaryFolder.h"
#include "platform/linux/loginitem/AutostartPlaces.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom {

/// The autostart folders of a test's own, and a program to start. Removed with all that is in it.
class AutostartHome {
public:
    /// Makes the program, and no autostart folder.
    AutostartHome();
    AutostartHome(const AutostartHome&) = delete;
    AutostartHome& operator=(const AutostartHome&) = delete;
    ~AutostartHome();

    [[nodiscard]] const std::filesystem::path& path() const { return m_home.path(); }

    /// Where a session of a desktop called Test looks.
    [[nodiscard]] AutostartPlaces places() const;

    [[nodiscard]] std::filesystem::path program() const { return path() / "bin" / "pallistrom"; }

    [[nodiscard]] std::filesystem::path config() const { return path() / "config"; }

    [[nodiscard]] std::filesystem::path folder() const { return config() / "autostart"; }

    [[nodiscard]] std::filesystem::path file() const { return folder() / "pallistrom.desktop"; }

    [[nodiscard]] std::filesystem::path systemFile() const {
        return path() / "system" / "pallistrom.desktop";
    }

    /// Writes a file and the folders above it.
    static void put(const std::filesystem::path& path, std::string_view text);

    /// Returns an entry that starts the program, and has `rest` besides.
    [[nodiscard]] std::string entry(std::string_view rest = {}) const;

    [[nodiscard]] static std::string text(const std::filesystem::path& path);

    /// Returns the names of all that is in the user's folder, sorted.
    [[nodiscard]] std::vector<std::string> names() const;

    /// Gives all of it to nobody.
    void giveAway() const;

private:
    TemporaryFolder m_home;
};

} // namespace pallistrom
