// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "PrivateBus.h"

#include "Environment.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace pallistrom {

PrivateBus::PrivateBus() {
    const auto services = m_folder.path() / "services";
    std::filesystem::create_directory(services);
    const std::string address = "unix:path=" + (m_folder.path() / "bus").string();
    std::ofstream(m_folder.path() / "bus.conf")
        << "<busconfig><type>session</type><listen>" << address << "</listen><servicedir>"
        << services.string()
        << "</servicedir><policy context=\"default\"><allow send_destination=\"*\"/>"
           "<allow receive_sender=\"*\"/><allow own=\"*\"/></policy></busconfig>\n";
    Environment::set("DBUS_SYSTEM_BUS_ADDRESS", address);
    start();
}

void PrivateBus::start() {
    m_process.emplace(Command{.arguments = {"dbus-daemon",
                                            "--config-file",
                                            (m_folder.path() / "bus.conf").string(),
                                            "--nofork",
                                            "--print-address=1"},
                              .environment = {{"PATH", Environment::value("PATH")}},
                              .errorFile = m_folder.path() / "bus.log"});
    if (!m_process->readLine()) {
        throw std::runtime_error("the private bus does not come up");
    }
}

void PrivateBus::addService(const std::string& name, const std::string& program) const {
    std::ofstream(m_folder.path() / "services" / (name + ".service"))
        << "[D-BUS Service]\nName=" << name << "\nExec=" << program << '\n';
}

} // namespace pallistrom
