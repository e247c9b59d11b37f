// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "engine/EventTapController.h"
#include "engine/Preferences.h"
#include "engine/ShortcutLibrary.h"
#include "platform/Log.h"
#include "service/Service.h"
#include "service/ThisProcess.h"
#include "service/devices/DeviceLayer.h"

#include <csignal>
#include <cstdlib>
#include <memory>

namespace pallistrom {

namespace {

OwnedEvent makeLoop() {
    sd_event* made = nullptr;
    static_cast<void>(sd_event_default(&made));
    return OwnedEvent{made};
}

int run(sd_event* loop, const std::filesystem::path& stateFolder) {
    Preferences::registerDefaults(ShortcutLibrary::all);
    tapController = std::make_shared<EventTapController>(ShortcutLibrary::all);
    DeviceLayer devices{*loop};
    Service service{loop, devices.control(), *tapController, GrantFile{stateFolder}};
    service.start();
    ThisProcess::lockMemory();
    return sd_event_loop(loop);
}

} // namespace

} // namespace pallistrom

int main(int argc, char** /*argv*/) {
    using namespace pallistrom;
    if (argc != 1) {
        NSLog("Pallistrom: the keyboard service takes no arguments");
        return EXIT_FAILURE;
    }
    ThisProcess::keepToItself();
    const char* const stateFolder = secure_getenv("STATE_DIRECTORY");
    if (stateFolder == nullptr) {
        NSLog("Pallistrom: the keyboard service is to be started by systemd");
        return EXIT_FAILURE;
    }
    const OwnedEvent loop = makeLoop();
    if (!loop || !ThisProcess::endWithSignals(loop.get())) {
        NSLog("Pallistrom: the keyboard service has no event loop");
        return EXIT_FAILURE;
    }
    const int result = run(loop.get(), stateFolder);
    return result == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
