// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/Problems.h"

#include <cerrno>
#include <system_error>

namespace pallistrom::Problems {

namespace {

std::string asItWas(const std::string& problem) {
    return problem + " Nothing has been changed.";
}

} // namespace

std::string ofSystem(int error, const std::filesystem::path& folder) {
    switch (error) {
    case ENOSPC:
    case EDQUOT:
        return asItWas("There is not enough room on the disk.");
    case EACCES:
    case EPERM:
    case EROFS:
        return asItWas("Nothing can be written in " + folder.string() + ".");
    default:
        return asItWas(
            "The disk could not be written to: " + std::generic_category().message(error) + ".");
    }
}

std::string badArchive() {
    return asItWas("What was downloaded cannot be unpacked.");
}

std::string missingTool(const std::string& program) {
    return asItWas("The program " + std::filesystem::path(program).filename().string() +
                   ", which unpacking takes, is not installed.");
}

std::string sharedFolder(const std::filesystem::path& folder) {
    return asItWas("Other files lie in the program's folder, " + folder.string() + ".");
}

std::string doesNotStart() {
    return asItWas("The new version does not start on this system.");
}

std::string unfit(NewProgram::Verdict verdict) {
    switch (verdict) {
    case NewProgram::Verdict::OtherVersion:
        return asItWas("What was downloaded is another version than the one that was offered.");
    case NewProgram::Verdict::OtherMachine:
        return asItWas("What was downloaded is made for another kind of computer.");
    case NewProgram::Verdict::Incomplete:
    case NewProgram::Verdict::Fits:
        break;
    }
    return asItWas("What was downloaded is not the whole program.");
}

} // namespace pallistrom::Problems
