// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/ArchiveInstallation.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>

// Puts an archive in the place of a program: install_archive TOP-FOLDER ARCHIVE VERSION. For tests
// that end it in the middle.
int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (arguments.size() != 4) {
        std::fputs("usage: install_archive TOP-FOLDER ARCHIVE VERSION\n", stderr);
        return EXIT_FAILURE;
    }
    const pallistrom::ArchiveInstallation installation(
        {.archive = arguments[2],
         .topFolder = arguments[1],
         .running = "/proc/self/exe",
         .version = arguments[3]},
        [](const std::string& problem) {
            std::fputs(problem.c_str(), stderr);
            QCoreApplication::exit(problem.empty() ? EXIT_SUCCESS : EXIT_FAILURE);
        });
    return QCoreApplication::exec();
}
