// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "VirtualDisplay.h"

#include <fstream>
#include <stdexcept>
#include <string_view>

namespace pallistrom::e2e {

namespace {

/// No key of the window manager's may take part in a test, so it has none.
constexpr std::string_view windowManagerSettings = R"(<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew></focus>
  <placement><policy>Smart</policy><center>yes</center></placement>
  <theme><name>Clearlooks</name></theme>
  <desktops><number>1</number></desktops>
  <keyboard/>
  <mouse/>
</openbox_config>
)";

XServer framebuffer(const Home& home, const std::vector<std::string>& arguments) {
    Command command{
        .arguments =
            {"Xvfb", "-screen", "0", "1000x600x24", "-ardelay", "400", "-arinterval", "30"},
        .environment = home.environment(""),
        .errorFile = home.path() / "framebuffer.log"};
    command.arguments.insert(command.arguments.end(), arguments.begin(), arguments.end());
    return XServer{command};
}

} // namespace

VirtualDisplay::VirtualDisplay(const std::vector<std::string>& serverArguments)
    : m_server{framebuffer(m_home, serverArguments)}, m_windowManager{startWindowManager()} {}

ChildProcess VirtualDisplay::startWindowManager() const {
    const auto settings = m_home.configFolder() / "window-manager.xml";
    std::ofstream{settings} << windowManagerSettings;
    // That it owns the screen is seen too early: windows that are shown while it still starts can
    // stay invisible. This command it runs when it is through.
    ChildProcess windowManager{
        {.arguments = {"openbox", "--config-file", settings, "--startup", "echo ready"},
         .environment = m_home.environment(name()),
         .errorFile = m_home.path() / "window-manager.log"}};
    if (windowManager.readLine() != "ready") {
        throw std::runtime_error{"the window manager does not come up"};
    }
    return windowManager;
}

} // namespace pallistrom::e2e
