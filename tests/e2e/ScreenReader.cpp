// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ScreenReader.h"

#include "ChildProcess.h"

#include <sstream>
#include <stdexcept>

namespace pallistrom::e2e {

namespace {

Accessible parse(const std::string& line) {
    std::istringstream fields{line};
    Accessible accessible;
    for (std::string* text :
         {&accessible.role, &accessible.name, &accessible.description, &accessible.states}) {
        std::getline(fields, *text, '\t');
    }
    fields >> accessible.x >> accessible.y >> accessible.left;
    return accessible;
}

} // namespace

std::string ScreenReader::path() {
    return ACCESSIBLE_TREE;
}

ScreenReader::ScreenReader(const SessionBus& bus) : m_environment{bus.environment()} {
    // Programs tell nothing before they know that somebody listens.
    if (!bus.call("org.a11y.Bus",
                  "/org/a11y/bus",
                  "org.freedesktop.DBus.Properties.Set",
                  {"org.a11y.Status", "IsEnabled", "<true>"})) {
        throw std::runtime_error{"the accessibility bus does not come up"};
    }
}

std::vector<Accessible> ScreenReader::window(const std::string& title) const {
    ChildProcess look{{.arguments = {path(), title}, .environment = m_environment}};
    std::vector<Accessible> found;
    while (const auto line = look.readLine()) {
        found.push_back(parse(*line));
    }
    return found;
}

std::optional<Accessible> ScreenReader::find(const std::string& title,
                                             const std::string& role,
                                             const std::string& name) const {
    for (const Accessible& accessible : window(title)) {
        if (accessible.role == role && accessible.name == name) {
            return accessible;
        }
    }
    return std::nullopt;
}

bool ScreenReader::press(const std::string& title,
                         const std::string& role,
                         const std::string& name) const {
    ChildProcess hand{{.arguments = {path(), title, role, name}, .environment = m_environment}};
    return hand.wait() == 0;
}

} // namespace pallistrom::e2e
