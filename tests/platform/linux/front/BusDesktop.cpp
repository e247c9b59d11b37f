// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "BusDesktop.h"

#include "Deadline.h"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <stdexcept>

namespace pallistrom {

namespace {

namespace fs = std::filesystem;

constexpr const char* display = "wayland-test";

// Shells take their time on a busy machine.
constexpr std::chrono::seconds patience{60};

std::map<std::string, std::string> desktopEnvironment(const e2e::SessionBus& bus) {
    auto environment = bus.environment();
    environment.erase("DISPLAY");
    environment.erase("QT_QPA_PLATFORM");
    environment["XDG_SESSION_TYPE"] = "wayland";
    environment["LIBGL_ALWAYS_SOFTWARE"] = "1";
    return environment;
}

} // namespace

BusDesktop::BusDesktop(const e2e::SessionBus& bus,
                       std::vector<std::string> arguments,
                       std::map<std::string, std::string> environment)
    : m_bus{bus},
      m_process{{.arguments = std::move(arguments),
                 .environment = std::move(environment),
                 .errorFile = bus.home().path() / "desktop.log"}} {
    const fs::path socket = bus.home().path() / "runtime" / display;
    if (!waitUntil([&] { return fs::exists(socket) || !m_process.isRunning(); },
                   Deadline{patience}) ||
        !m_process.isRunning()) {
        throw std::runtime_error{"the desktop does not come up"};
    }
}

BusDesktop BusDesktop::kwin(const e2e::SessionBus& bus) {
    // A copy: the installed one has a capability that is not to be had everywhere.
    const fs::path program = bus.home().path() / "kwin_wayland";
    if (!fs::exists(program)) {
        fs::copy_file("/usr/bin/kwin_wayland", program);
    }
    auto environment = desktopEnvironment(bus);
    environment["KWIN_COMPOSE"] = "Q"; // Without a graphics card.
    return {bus,
            {program,
             "--virtual",
             "--socket",
             display,
             "--no-lockscreen",
             "--no-global-shortcuts",
             "--width",
             "800",
             "--height",
             "600"},
            environment};
}

BusDesktop BusDesktop::gnomeShell(const e2e::SessionBus& bus, const fs::path& dataFolder) {
    auto environment = desktopEnvironment(bus);
    environment["XDG_DATA_DIRS"] = dataFolder.string() + ":/usr/share";
    // It only wants there to be one; what it asks for there it does without.
    environment["DBUS_SYSTEM_BUS_ADDRESS"] = environment.at("DBUS_SESSION_BUS_ADDRESS");
    BusDesktop desktop{bus,
                       {"gnome-shell",
                        "--headless",
                        "--wayland",
                        "--no-x11",
                        "--virtual-monitor",
                        "800x600",
                        "--wayland-display",
                        display},
                       environment};
    const auto isOnTheBus = [&bus] {
        return bus.call(
            "org.gnome.Shell", "/org/gnome/Shell", "org.gnome.Shell.Extensions.ListExtensions", {});
    };
    if (!waitUntil(isOnTheBus, Deadline{patience})) {
        throw std::runtime_error{"the shell does not answer"};
    }
    return desktop;
}

void BusDesktop::end() {
    m_process.signal(SIGTERM);
    static_cast<void>(m_process.wait());
}

ChildProcess BusDesktop::openWindow(const std::string& application) const {
    // GTK calls a program on Wayland as its file is called.
    const fs::path program = m_bus.home().path() / application;
    if (!fs::exists(program)) {
        fs::create_symlink(FIELD_FOLDER "/field-gtk3", program);
    }
    auto environment = desktopEnvironment(m_bus);
    environment["WAYLAND_DISPLAY"] = display;
    environment["GDK_BACKEND"] = "wayland";
    return ChildProcess{{.arguments = {program},
                         .environment = environment,
                         .errorFile = m_bus.home().path() / "windows.log"}};
}

} // namespace pallistrom
