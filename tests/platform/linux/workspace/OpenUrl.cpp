// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/Workspace.h"

#include <QApplication>

#include <cstdio>
#include <span>

// Opens each URL that it is given, and says for each whether somebody took it.
int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    for (const char* const url : std::span(argv, static_cast<std::size_t>(argc)).subspan(1)) {
        std::puts(pallistrom::openURL(url) ? "taken" : "refused");
    }
    return 0;
}
