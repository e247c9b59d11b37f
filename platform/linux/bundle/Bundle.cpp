// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/Bundle.h"

#include "platform/linux/ThisProgram.h"
#include "platform/linux/bundle/InformationList.h"
#include "platform/linux/bundle/WindowTexts.h"
#include "platform/linux/system/OsRelease.h"

namespace pallistrom {

std::optional<std::string> objectForInfoDictionaryKey(std::string_view key) {
    // Read once: an update may replace the file before it replaces the program that runs.
    static const auto list = InformationList::ofProgramIn(ThisProgram::file().parent_path());
    return list.entry(key);
}

std::string NSLocalizedString(std::string_view key) {
    return WindowTexts::localized(key, OsRelease::ofSystem().name);
}

} // namespace pallistrom
