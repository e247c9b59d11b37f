// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include <string_view>

// A program that says which version it is, like ours, and does nothing else.
int main(int argc, char** argv) {
    return argc == 2 && std::string_view(argv[1]) == "--version" ? 0 : 1;
}
