// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Camera.h"
#include "Desk.h"
#include "Shortcut.h"
#include "TextState.h"

#include <array>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

using namespace pallistrom::e2e;

const TextState before{.text = "meet me at the old mill at nine", .cursor = 19};

struct Example {
    std::string id; ///< the shortcut's
    std::string keys;
    TextState after;
};

const std::array<Example, 4> examples{{
    {"ctrlW", "Control-W", {.text = "meet me at the mill at nine", .cursor = 15}},
    {"ctrlU", "Control-U", {.text = "mill at nine", .cursor = 0}},
    {"ctrlK", "Control-K", {.text = "meet me at the old ", .cursor = 19}},
    {"altD", "Alt-D", {.text = "meet me at the old at nine", .cursor = 19}},
}};

std::string shown(const TextState& state) {
    std::ostringstream out;
    PrintTo(state, &out);
    return out.str();
}

const Shortcut& shortcutOf(const Example& example) {
    for (const Shortcut& shortcut : allShortcuts()) {
        if (shortcut.id == example.id) {
            return shortcut;
        }
    }
    throw std::runtime_error{"no shortcut " + example.id};
}

void printRow(const std::string& keys,
              const std::string& textBefore,
              const std::string& textAfter,
              const std::string& verdict) {
    std::cout << "  " << std::left << std::setw(12) << keys << std::setw(36) << textBefore
              << std::setw(36) << textAfter << verdict << std::endl;
}

/// Presses the shortcut once and tells whether the text came out right.
bool tryOut(Desk& desk, Camera& camera, const Example& example) {
    const Shortcut& shortcut = shortcutOf(example);
    desk.program->setSwitch(shortcut.id, true);
    if (!desk.program->waitUntilGrabbed(shortcut.grab)) {
        throw std::runtime_error{"Pallistrom does not take " + example.keys};
    }
    desk.field.set(before);
    camera.take("before");
    desk.keys.press(shortcut.modifier + '+' + shortcut.key);
    const TextState after = desk.field.waitFor(example.after);
    camera.take(example.id);
    const bool isRight = after == example.after;
    printRow(example.keys, shown(before), shown(after), isRight ? "ok" : "WRONG");
    return isRight;
}

int run(const std::filesystem::path& pictures) {
    Desk desk{FIELD_PROGRAM, Lines::One, Keyboard::Faked, Desk::Program::Pallistrom};
    Camera camera{desk.display.name(), pictures};
    camera.paintBackground();
    printRow("shortcut", "text before", "text after", "");
    int status = EXIT_SUCCESS;
    for (const Example& example : examples) {
        if (!tryOut(desk, camera, example)) {
            status = EXIT_FAILURE;
        }
    }
    return status;
}

} // namespace

/// Presses each shortcut in a text field on a display of its own: demo FOLDER-FOR-PICTURES.
int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: demo FOLDER\n";
        return EXIT_FAILURE;
    }
    try {
        return run(argv[1]);
    } catch (const std::exception& error) {
        std::cerr << "demo: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
