// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/loginitem/AutostartPlaces.h"

#include "pallistrom/Names.h"
#include "platform/linux/SessionPaths.h"
#include "platform/linux/ThisProgram.h"

#include <sstream>

namespace pallistrom {

AutostartPlaces AutostartPlaces::ofSession() {
    const auto file =
        std::filesystem::path("autostart") / (std::string(Names::applicationId) + ".desktop");
    AutostartPlaces places{
        .userFile = SessionPaths::configHome() / file,
        .systemFiles = SessionPaths::configFolders(),
        .program = ThisProgram::pathToStart(),
        .programFolders = SessionPaths::absolutePathsIn(SessionPaths::variable("PATH")),
        .desktops = {},
    };
    for (auto& path : places.systemFiles) {
        path /= file;
    }
    std::istringstream list(SessionPaths::variable("XDG_CURRENT_DESKTOP"));
    for (std::string desktop; std::getline(list, desktop, ':');) {
        if (!desktop.empty()) {
            places.desktops.push_back(desktop);
        }
    }
    return places;
}

} // namespace pallistrom
