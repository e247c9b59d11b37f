// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "SwayDisplay.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>

namespace pallistrom::e2e {

namespace {

namespace fs = std::filesystem;

constexpr const char* barSettings = R"({
    "position": "top", "height": 30, "modules-left": ["tray"], "tray": {"icon-size": 20}
})";

/// Sway does not run as root. Where the tests do, it runs as nobody.
constexpr uid_t nobody = 65534;

void giveToNobody(const fs::path& folder) {
    const auto give = [](const fs::path& path) {
        if (lchown(path.c_str(), nobody, nobody) != 0) {
            throw std::runtime_error{"cannot be given away: " + path.string()};
        }
    };
    give(folder);
    for (const auto& entry : fs::recursive_directory_iterator{folder}) {
        give(entry.path());
    }
}

Command barCommand(const SwayDisplay& display, const SessionBus& bus) {
    const fs::path folder = bus.home().configFolder() / "waybar";
    fs::create_directories(folder);
    std::ofstream{folder / "config"} << barSettings;
    std::ofstream{folder / "style.css"} << "* { font-size: 12px; }";
    return {.arguments = {"waybar"},
            .environment = display.environment(bus),
            .errorFile = bus.home().path() / "bar.log"};
}

} // namespace

SwayDisplay::SwayDisplay() : m_sway{startSway()} {
    // Said by a command that sway runs when it is through, as below.
    const auto name = m_sway.readLine();
    if (!name || name->empty()) {
        throw std::runtime_error{"sway does not come up"};
    }
    m_socket = m_home.path() / "runtime" / *name;
}

SwayDisplay::~SwayDisplay() {
    m_sway.signal(SIGTERM);
    static_cast<void>(m_sway.wait());
}

ChildProcess SwayDisplay::startSway() {
    const fs::path settings = m_home.configFolder() / "sway";
    std::ofstream{settings} << "xwayland disable\nexec echo \"$WAYLAND_DISPLAY\"\n";
    Command command{.arguments = {"sway", "--config", settings},
                    .environment = m_home.environment(""),
                    .errorFile = m_home.path() / "sway.log"};
    command.environment["WLR_BACKENDS"] = "headless";
    command.environment["WLR_LIBINPUT_NO_DEVICES"] = "1";
    command.environment["WLR_RENDERER"] = "pixman";
    if (geteuid() == 0) {
        giveToNobody(m_home.path());
        const std::string user = std::to_string(nobody);
        const std::array drop{std::string{"setpriv"},
                              "--reuid=" + user,
                              "--regid=" + user,
                              std::string{"--clear-groups"}};
        command.arguments.insert(command.arguments.begin(), drop.begin(), drop.end());
    }
    return ChildProcess{command};
}

std::map<std::string, std::string> SwayDisplay::environment(const SessionBus& bus) const {
    auto environment = bus.environment();
    environment.erase("DISPLAY");
    environment["WAYLAND_DISPLAY"] = m_socket;
    environment["XDG_SESSION_TYPE"] = "wayland";
    environment["QT_QPA_PLATFORM"] = "wayland";
    environment["GDK_BACKEND"] = "wayland";
    return environment;
}

int SwayDisplay::coloursInTheCorner(int size) const {
    const fs::path picture = m_home.path() / "corner.ppm";
    const std::string side = std::to_string(size);
    run({.arguments = {"grim", "-t", "ppm", "-g", "0,0 " + side + 'x' + side, picture},
         .environment = {{"PATH", m_home.environment("").at("PATH")},
                         {"WAYLAND_DISPLAY", m_socket},
                         {"XDG_RUNTIME_DIR", m_home.path() / "runtime"}}});
    std::ifstream file{picture, std::ios::binary};
    const std::string bytes{std::istreambuf_iterator<char>{file}, {}};
    std::set<std::string> colours;
    // The pixels, of three bytes each, are what the file ends with.
    const auto pixels = static_cast<std::size_t>(size) * static_cast<std::size_t>(size);
    for (auto at = bytes.size() - std::min(3 * pixels, bytes.size()); at < bytes.size(); at += 3) {
        colours.insert(bytes.substr(at, 3));
    }
    return static_cast<int>(colours.size());
}

Waybar::Waybar(const SwayDisplay& display, const SessionBus& bus)
    : m_process{barCommand(display, bus)} {}

} // namespace pallistrom::e2e
