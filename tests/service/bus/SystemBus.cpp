// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "SystemBus.h"

#include "Environment.h"

#include <fstream>
#include <stdexcept>

namespace pallistrom {

namespace {

constexpr const char* variable = "DBUS_SYSTEM_BUS_ADDRESS";

constexpr const char* configuration = R"(<!DOCTYPE busconfig PUBLIC
 "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>system</type>
  <listen>unix:path=SOCKET</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow user="*"/>
    <deny own="*"/>
    <deny send_type="method_call"/>
    <allow send_destination="org.freedesktop.DBus"/>
    <allow send_type="signal"/>
    <allow send_requested_reply="true" send_type="method_return"/>
    <allow send_requested_reply="true" send_type="error"/>
    <allow receive_type="method_call"/>
    <allow receive_type="method_return"/>
    <allow receive_type="error"/>
    <allow receive_type="signal"/>
  </policy>
  RULES
</busconfig>
)";

constexpr const char* everything = R"(<policy context="default">
    <allow own="*"/>
    <allow send_type="method_call"/>
  </policy>)";

} // namespace

SystemBus::SystemBus() {
    configure(everything);
}

SystemBus::SystemBus(const std::filesystem::path& policy) {
    configure("<include>" + policy.string() + "</include>");
}

void SystemBus::configure(const std::string& rules) {
    // Other users connect as well.
    std::filesystem::permissions(m_folder.path(), std::filesystem::perms{0711});
    std::string text{configuration};
    text.replace(text.find("SOCKET"), 6, (m_folder.path() / "bus").string());
    text.replace(text.find("RULES"), 5, rules);
    std::ofstream{m_folder.path() / "bus.conf"} << text;
    Environment::set(variable, "unix:path=" + (m_folder.path() / "bus").string());
    start();
}

SystemBus::~SystemBus() {
    Environment::unset(variable);
}

void SystemBus::start() {
    std::filesystem::remove(m_folder.path() / "bus");
    m_process.emplace(
        Command{.arguments = {"dbus-daemon",
                              "--config-file=" + (m_folder.path() / "bus.conf").string(),
                              "--nofork",
                              "--nopidfile",
                              "--nosyslog",
                              "--print-address=1"},
                .environment = {{"PATH", "/usr/local/bin:/usr/bin:/bin"}},
                .errorFile = m_folder.path() / "bus.log"});
    if (!m_process->readLine()) {
        throw std::runtime_error{"the bus does not come up"};
    }
}

void SystemBus::stop() {
    m_process.reset();
}

} // namespace pallistrom
