// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "engine/EventTapController.h"
#include "engine/Preferences.h"
#include "engine/ShortcutLibrary.h"
#include "service/devices/DeviceLayer.h"

#include <sys/epoll.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <array>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <string_view>

// The keyboards of the service, with all shortcuts switched on and nobody to ask for anything:
//
//     keyboard_host [--programs-keyboards]
//
// With the option, keyboards that other programs make through uinput count as well. Says on its
// output when it begins and ends to grab, and of a panic. Does what it is told line by line on its
// input: allow, forbid, keep, take, sleep, awake, quit. Ends with its input, unless that was empty
// from the beginning.

using namespace pallistrom;

namespace {

class Reporter final : public KeyControl::Observer {
public:
    explicit Reporter(KeyControl& control) : m_control(control) {}

    void panicked() override { std::cout << "panic" << std::endl; }

    void keyboardsChanged() override {
        std::cout << (m_control.isGrabbing() ? "grabbing" : "not grabbing") << std::endl;
    }

private:
    KeyControl& m_control;
};

class Commands {
public:
    Commands(KeyControl& control, sd_event& loop)
        : m_actions{{"allow",
                     [&] {
                         control.setAllowed(true);
                         tapController->ensureRunning();
                     }},
                    {"forbid",
                     [&] {
                         control.setAllowed(false);
                     }},
                    {"keep",
                     [&] {
                         control.setFrontApplication(FrontApplication::KeepsItsKeys);
                     }},
                    {"take",
                     [&] {
                         control.setFrontApplication(FrontApplication::TakesEditingKeys);
                     }},
                    {"sleep",
                     [&] {
                         control.aboutToSleep();
                     }},
                    {"awake",
                     [&] {
                         control.awake();
                     }},
                    {"quit", [&] {
                         sd_event_exit(&loop, 0);
                     }}} {}

    void run(const std::string& name) const {
        const auto found = m_actions.find(name);
        if (found == m_actions.end()) {
            std::cout << "what is \"" << name << "\"?" << std::endl;
        } else {
            found->second();
            std::cout << "done " << name << std::endl;
        }
    }

    // Returns whether there may be more.
    bool read(int descriptor) {
        std::array<char, 256> room{};
        const auto size = ::read(descriptor, room.data(), room.size());
        if (size <= 0) {
            return false;
        }
        for (const char c : std::string_view(room.data(), static_cast<std::size_t>(size))) {
            if (c == '\n') {
                run(m_line);
                m_line.clear();
            } else {
                m_line += c;
            }
        }
        m_hasRead = true;
        return true;
    }

    [[nodiscard]] bool hasRead() const { return m_hasRead; }

private:
    std::map<std::string, std::function<void()>> m_actions;
    std::string m_line;
    bool m_hasRead = false;
};

int runKeyboards(ProgramsKeyboards programs) {
    sd_event* loop = nullptr;
    if (sd_event_default(&loop) < 0) {
        return 1;
    }
    DeviceLayer devices(*loop, programs);
    KeyControl& control = devices.control();
    Reporter reporter(control);
    control.setObserver(&reporter);
    std::cout << (control.canMakeKeyboards() ? "can" : "cannot") << " make keyboards" << std::endl;

    tapController = std::make_shared<EventTapController>(ShortcutLibrary::all);
    Preferences::registerDefaults(ShortcutLibrary::all);
    for (const ShortcutDef& shortcut : ShortcutLibrary::all) {
        Preferences::setEnabled(shortcut.id, true);
    }
    Commands commands(control, *loop);
    const auto readInput = [](sd_event_source* source, int descriptor, std::uint32_t, void* data) {
        auto& told = *static_cast<Commands*>(data);
        if (!told.read(descriptor)) {
            sd_event_source_set_enabled(source, SD_EVENT_OFF);
            if (told.hasRead()) {
                sd_event_exit(sd_event_source_get_event(source), 0);
            }
        }
        return 0;
    };
    // An input that cannot be waited for, as of a file, is left unread.
    sd_event_add_io(loop, nullptr, STDIN_FILENO, EPOLLIN, readInput, &commands);
    commands.run("allow");
    const int status = sd_event_loop(loop);
    control.setObserver(nullptr);
    tapController.reset();
    return status < 0 ? 1 : 0;
}

} // namespace

int main(int argc, char** argv) {
    prctl(PR_SET_DUMPABLE, 0);
    const bool all = argc > 1 && std::string_view(argv[1]) == "--programs-keyboards";
    return runKeyboards(all ? ProgramsKeyboards::Taken : ProgramsKeyboards::LeftAlone);
}
