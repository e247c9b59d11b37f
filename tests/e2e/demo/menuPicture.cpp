// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Camera.h"
#include "Pallistrom.h"
#include "Panel.h"
#include "Screen.h"
#include "SessionBus.h"
#include "SettingsFile.h"
#include "VirtualDisplay.h"

#include <cstdlib>
#include <exception>
#include <iostream>
#include <stdexcept>

// Takes a picture of the program's menu, open in a real panel: menu_picture FOLDER.

namespace {

using namespace pallistrom::e2e;

/// Where the only icon of the panel is, and where its menu opens.
constexpr Area iconArea{.x = 0, .y = 0, .width = 40, .height = Panel::height};
constexpr Area menuArea{.x = 4, .y = 30, .width = 150, .height = 100};

void waitForSomethingBright(const Screen& screen, Area area) {
    if (!pallistrom::waitUntil([&] { return screen.brightPixels(area) > 20; })) {
        throw std::runtime_error{"the panel does not show it"};
    }
}

void takePicture(const std::string& folder) {
    constexpr int rightButton = 3;
    const VirtualDisplay display;
    const SessionBus bus{display.name()};
    const Screen screen{display.name()};
    Camera camera{display.name(), folder};
    camera.paintBackground();
    SettingsFile{bus.home().configFolder()}.set({{"hasCompletedOnboarding", true}});
    const Panel panel{bus};
    const pallistrom::ChildProcess program{
        {.arguments = {Pallistrom::path()}, .environment = bus.environment()}};
    waitForSomethingBright(screen, iconArea);
    screen.click(12, Panel::height / 2, rightButton);
    waitForSomethingBright(screen, menuArea);
    camera.take("menu");
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: menu_picture FOLDER\n";
        return 2;
    }
    try {
        takePicture(argv[1]);
    } catch (const std::exception& error) {
        std::cerr << "menu_picture: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
