// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "shell/runApplication.h"

int main(int argc, char** argv) {
    return pallistrom::runApplication(argc, argv);
}
