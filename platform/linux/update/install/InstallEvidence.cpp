// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/InstallEvidence.h"

#include "pallistrom/Names.h"
#include "platform/linux/SessionPaths.h"
#include "platform/linux/ThisProgram.h"
#include "platform/linux/update/install/PackedFiles.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <system_error>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;

bool liesBelow(const fs::path& folder, const fs::path& file) {
    const auto [end, rest] = std::mismatch(folder.begin(), folder.end(), file.begin(), file.end());
    return end == folder.end() && rest != file.end();
}

bool canWriteTo(const fs::path& folder) {
    return access(folder.c_str(), W_OK | X_OK) == 0;
}

// What an AppImage starts inherits its variables, what a snap starts its own: both count only for
// a program that lies in them.
bool isSandboxed(const fs::path& file) {
    std::error_code ignored;
    const fs::path snap = SessionPaths::variable("SNAP");
    const fs::path toStart = ThisProgram::pathToStart(
        file, SessionPaths::variable("APPIMAGE"), SessionPaths::variable("APPDIR"));
    return fs::exists("/.flatpak-info", ignored) || toStart != file ||
           (snap.is_absolute() && liesBelow(snap, file));
}

} // namespace

InstallEvidence InstallEvidence::ofProgram(const fs::path& file) {
    InstallEvidence evidence{.program = file};
    evidence.isInSandbox = isSandboxed(file);
    const fs::path top = evidence.topFolder();
    std::error_code ignored;
    evidence.hasMarker = !top.empty() && fs::is_regular_file(PackedFiles::listIn(top), ignored);
    evidence.isAlone = evidence.hasMarker && PackedFiles::areAllIn(top);
    evidence.isOurs = top.empty() ? canWriteTo(file.parent_path())
                                  : canWriteTo(top) && canWriteTo(top.parent_path());
    return evidence;
}

InstallKind InstallEvidence::kind() const {
    // Those who put a program there themselves did so without a package.
    constexpr std::array handMade{"/usr/local"};
    constexpr std::array packaged{"/usr", "/opt", "/bin", "/nix/store", "/gnu/store"};
    const auto holdsProgram = [this](const char* folder) {
        return liesBelow(folder, program);
    };
    if (isInSandbox || std::any_of(handMade.begin(), handMade.end(), holdsProgram)) {
        return InstallKind::Elsewhere;
    }
    if (std::any_of(packaged.begin(), packaged.end(), holdsProgram)) {
        return hasMarker && !liesBelow("/usr", program) ? InstallKind::Elsewhere
                                                        : InstallKind::Package;
    }
    if (hasMarker) {
        return isOurs && isAlone ? InstallKind::ReplaceItself : InstallKind::Elsewhere;
    }
    return isOurs ? InstallKind::Elsewhere : InstallKind::Package;
}

fs::path InstallEvidence::topFolder() const {
    const fs::path folder = program.parent_path();
    const fs::path top = folder.parent_path();
    const bool fits = program.is_absolute() && folder.filename() == "bin" &&
                      program.filename() == Names::program && top.has_relative_path();
    return fits ? top : fs::path();
}

} // namespace pallistrom
