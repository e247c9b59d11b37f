// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "WaylandSession.h"

#include "Environment.h"

#include <unistd.h>

#include <csignal>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace pallistrom::vm {

namespace {

namespace fs = std::filesystem;

// Compositors do not run as root.
constexpr uid_t nobody = 65534;
constexpr const char* seatSocket = "/run/seatd.sock";

void giveAway(const fs::path& file) {
    if (::chown(file.c_str(), nobody, nobody) != 0) {
        throw std::runtime_error{"nobody is not given " + file.string()};
    }
}

// As login managers do it. Without it, sway is gone once its X server asks for screens to borrow.
void giveAwayTheScreen() {
    for (const auto& device : fs::directory_iterator{"/dev/dri"}) {
        if (device.is_character_file()) {
            giveAway(device);
        }
    }
}

} // namespace

WaylandSession::WaylandSession(XServer xServer) : m_seat{startSeat()}, m_sway{startSway(xServer)} {
    // Said by a command that sway runs when it is through.
    const auto displays = m_sway.readLine(patience());
    if (!displays) {
        throw std::runtime_error{"sway does not come up"};
    }
    std::istringstream words{*displays};
    words >> m_display >> m_socket >> m_xDisplay;
}

WaylandSession::~WaylandSession() {
    m_sway.signal(SIGTERM);
    static_cast<void>(m_sway.wait(patience()));
}

ChildProcess WaylandSession::startSeat() {
    // One that was killed leaves it there, and nobody listens to it.
    fs::remove(seatSocket);
    ChildProcess seat{{.arguments = {"seatd", "-u", "nobody"},
                       .environment = {{"PATH", Environment::value("PATH")}},
                       .errorFile = m_home.path() / "seat.log"}};
    if (!waitUntil([] { return fs::exists(seatSocket); }, patience())) {
        throw std::runtime_error{"there is no seat"};
    }
    return seat;
}

ChildProcess WaylandSession::startSway(XServer xServer) {
    const fs::path settings = m_home.path() / "sway.conf";
    std::ofstream{settings} << "xwayland " << (xServer == XServer::No ? "disable" : "enable")
                            << "\nexec echo \"$WAYLAND_DISPLAY $SWAYSOCK $DISPLAY\"\n";
    const fs::path runtime = runtimeFolder();
    fs::create_directory(runtime);
    fs::permissions(runtime, fs::perms::owner_all);
    fs::permissions(m_home.path(), fs::perms::all);
    giveAway(runtime);
    giveAwayTheScreen();
    Command sway = command({"sway", "--config", settings});
    sway.environment["LIBSEAT_BACKEND"] = "seatd";
    sway.environment["WLR_RENDERER"] = "pixman";
    sway.environment["WLR_NO_HARDWARE_CURSORS"] = "1";
    sway.errorFile = m_home.path() / "sway.log";
    return ChildProcess{sway};
}

std::string WaylandSession::user() {
    return std::to_string(nobody);
}

Command WaylandSession::command(const std::vector<std::string>& arguments) const {
    Command result{.arguments = {"setpriv",
                                 "--reuid=" + user(),
                                 "--regid=" + user(),
                                 std::string{"--clear-groups"}},
                   .environment = environment()};
    result.arguments.insert(result.arguments.end(), arguments.begin(), arguments.end());
    return result;
}

std::map<std::string, std::string> WaylandSession::environment() const {
    const fs::path runtime = runtimeFolder();
    std::map<std::string, std::string> environment{{"PATH", Environment::value("PATH")},
                                                   {"HOME", runtime},
                                                   {"XDG_RUNTIME_DIR", runtime},
                                                   {"XDG_SESSION_TYPE", "wayland"},
                                                   {"LANG", "C.UTF-8"},
                                                   {"DBUS_SESSION_BUS_ADDRESS", "disabled:"},
                                                   {"GDK_BACKEND", "wayland"},
                                                   {"GSETTINGS_BACKEND", "memory"},
                                                   {"GSK_RENDERER", "cairo"},
                                                   {"GTK_A11Y", "none"},
                                                   {"QT_QPA_PLATFORM", "wayland"}};
    // The compositor would run inside another one whose display is named, be it by nothing.
    for (const auto& [name, value] : {std::pair{"WAYLAND_DISPLAY", m_display},
                                      std::pair{"SWAYSOCK", m_socket},
                                      std::pair{"DISPLAY", m_xDisplay}}) {
        if (!value.empty()) {
            environment[name] = value;
        }
    }
    return environment;
}

void useHardware(const std::vector<std::string>& command) {
    std::vector<std::string> arguments{"vm-hw"};
    arguments.insert(arguments.end(), command.begin(), command.end());
    ChildProcess hands{{.arguments = arguments,
                        .environment = {{"PATH", Environment::value("PATH")},
                                        {"VM_HANDS", Environment::value("VM_HANDS")}}}};
    if (hands.wait(WaylandSession::patience()) != 0) {
        throw std::runtime_error{"the hardware does not do what it is asked to"};
    }
}

} // namespace pallistrom::vm
