// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "VirtualDisplay.h"

#include "XConnection.h"

#include <fstream>
#include <ostream>
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
    Command command{.arguments = {"Xvfb", "-screen", "0", "1000x600x24"},
                    .environment = home.environment(""),
                    .errorFile = home.path() / "framebuffer.log"};
    command.arguments.insert(command.arguments.end(), arguments.begin(), arguments.end());
    return XServer{command};
}

/// Gives the keyboard of `display` to the only window on it, which a nested server has put there.
void focusOnlyWindow(const std::string& display) {
    const XConnection connection{display};
    const bool focused = waitUntil([&] {
        const XReply<xcb_query_tree_reply_t> tree{xcb_query_tree_reply(
            connection, xcb_query_tree(connection, connection.rootWindow()), nullptr)};
        if (!tree || xcb_query_tree_children_length(tree.get()) == 0) {
            return false;
        }
        // Refused while the window is not mapped yet.
        const xcb_window_t window = *xcb_query_tree_children(tree.get());
        const XReply<xcb_generic_error_t> error{
            xcb_request_check(connection,
                              xcb_set_input_focus_checked(
                                  connection, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME))};
        return error == nullptr;
    });
    if (!focused) {
        throw std::runtime_error{"the nested X server has no window"};
    }
}

} // namespace

void PrintTo(Keyboard keyboard, std::ostream* out) {
    *out << (keyboard == Keyboard::Faked ? "faked keys" : "keyboard");
}

VirtualDisplay::VirtualDisplay(Keyboard keyboard, const std::vector<std::string>& serverArguments)
    // Only the server that has the keyboard may repeat held keys, so the outer one does not.
    : m_outer{keyboard == Keyboard::Device ? std::optional{framebuffer(m_home, {"-r"})}
                                           : std::nullopt},
      m_server{startServer(keyboard, serverArguments)},
      m_windowManager{startWindowManager()} {
    if (m_outer) {
        focusOnlyWindow(m_outer->name());
    }
}

XServer VirtualDisplay::startServer(Keyboard keyboard,
                                    const std::vector<std::string>& arguments) const {
    std::vector<std::string> allArguments{"-ardelay", "400", "-arinterval", "30"};
    allArguments.insert(allArguments.end(), arguments.begin(), arguments.end());
    if (keyboard == Keyboard::Faked) {
        return framebuffer(m_home, allArguments);
    }
    Command command{.arguments = {"Xephyr", "-screen", "1000x600", "-no-host-grab"},
                    .environment = m_home.environment(m_outer->name()),
                    .errorFile = m_home.path() / "nested-server.log"};
    command.arguments.insert(command.arguments.end(), allArguments.begin(), allArguments.end());
    return XServer{command};
}

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
