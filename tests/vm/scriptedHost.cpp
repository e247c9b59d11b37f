// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "DeliveryScript.h"
#include "ScriptedDecisions.h"
#include "platform/linux/KeyFilter.h"
#include "service/devices/DeviceLayer.h"
#include "service/devices/Handles.h"
#include "service/seam/FilteredKeys.h"

#include <gtest/gtest.h>
#include <systemd/sd-event.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pallistrom::vm {

namespace {

// The service's keyboards with a test in the place of the engine and of the bus. Obeys, a line
// each:
//
//     script SCRIPT   decides what the script says, in the notation of DeliveryScript
//     table SCRIPT    the modifiers of the script's first word hold from now on
//     letgo           goes to sleep and wakes up
//     allow | forbid  keys are filtered, or not
//
// and says "done", with the command, when it is. Ends with its input.
class ScriptedHost final : private KeyControl::Observer {
public:
    explicit ScriptedHost(sd_event& loop)
        : m_loop{loop},
          m_layer{loop, ProgramsKeyboards::Taken},
          m_filter{&ScriptedDecisions::callback, &m_decisions, allKeys()} {
        m_layer.control().setObserver(this);
        FilteredKeys::current()->setFilter(&m_filter);
        m_layer.control().prepare();
        m_layer.control().setAllowed(true);
    }

    /// Reads what has come; ends the loop with the input.
    void readCommands() {
        std::array<char, 4096> buffer{};
        const ssize_t size = ::read(STDIN_FILENO, buffer.data(), buffer.size());
        if (size <= 0) {
            sd_event_exit(&m_loop, 0);
            return;
        }
        m_unread.append(buffer.data(), static_cast<std::size_t>(size));
        for (std::size_t end = m_unread.find('\n'); end != std::string::npos;
             end = m_unread.find('\n')) {
            obey(m_unread.substr(0, end));
            m_unread.erase(0, end + 1);
        }
    }

private:
    static std::vector<TappedKey> allKeys() {
        std::vector<TappedKey> keys;
        for (const auto& [key, keyCode] : KeyMap::all()) {
            keys.push_back({.keyCode = keyCode});
        }
        return keys;
    }

    void obey(const std::string& line) {
        KeyControl& control = m_layer.control();
        const std::size_t space = line.find(' ');
        const std::string command = line.substr(0, space);
        const auto script = DeliveryScript::parse(
            space == std::string::npos ? std::string_view{} : std::string_view{line}.substr(space));
        if (command == "script") {
            m_decisions.use(script);
        } else if (command == "table" && !script.empty()) {
            control.setModifierTable(script.front().table);
        } else if (command == "letgo") {
            control.aboutToSleep();
            control.awake();
        } else if (command == "allow" || command == "forbid") {
            control.setAllowed(command == "allow");
        } else {
            return;
        }
        std::puts(("done " + command).c_str());
    }

    void panicked() override { std::puts("panicked"); }

    void keyboardsChanged() override {}

    sd_event& m_loop;
    DeviceLayer m_layer;
    ScriptedDecisions m_decisions;
    KeyFilter m_filter;
    std::string m_unread;
};

int run() {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    sd_event* made = nullptr;
    if (sd_event_new(&made) < 0) {
        return 1;
    }
    const std::unique_ptr<sd_event, decltype([](sd_event* loop) { sd_event_unref(loop); })> loop{
        made};
    ScriptedHost host{*loop};
    const auto readCommands = [](sd_event_source*, int, std::uint32_t, void* data) {
        static_cast<ScriptedHost*>(data)->readCommands();
        return 0;
    };
    if (sd_event_add_io(loop.get(), nullptr, STDIN_FILENO, EPOLLIN, readCommands, &host) < 0) {
        return 1;
    }
    return sd_event_loop(loop.get());
}

} // namespace

} // namespace pallistrom::vm

int main() {
    return pallistrom::vm::run();
}
