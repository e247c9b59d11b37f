// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Panel.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace pallistrom::e2e {

namespace {

constexpr std::string_view xfcePanelSettings = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="dark-mode" type="bool" value="true"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="length" type="uint" value="100"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="size" type="uint" value="24"/>
      <property name="icon-size" type="uint" value="16"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray"/>
  </property>
</channel>
)";

constexpr std::string_view tint2Settings = R"(rounded = 0
border_width = 0
background_color = #202020 100
panel_items = S
panel_size = 100% 24
panel_position = top center horizontal
panel_background_id = 1
systray_padding = 0 0 0
)";

Command xfcePanel(const SessionBus& bus) {
    const auto folder = bus.home().configFolder() / "xfce4" / "xfconf" / "xfce-perchannel-xml";
    std::filesystem::create_directories(folder);
    std::ofstream{folder / "xfce4-panel.xml"} << xfcePanelSettings;
    return {.arguments = {"xfce4-panel", "--disable-wm-check"},
            .environment = bus.environment(),
            .errorFile = bus.home().path() / "panel.log"};
}

Command tint2(const SessionBus& bus) {
    const auto settings = bus.home().configFolder() / "tint2rc";
    std::ofstream{settings} << tint2Settings;
    return {.arguments = {"tint2", "-c", settings},
            .environment = bus.environment(),
            .errorFile = bus.home().path() / "panel.log"};
}

} // namespace

Panel::Panel(const SessionBus& bus, Tray tray)
    : m_process{tray == Tray::StatusNotifier ? xfcePanel(bus) : tint2(bus)} {}

Panel::~Panel() {
    m_process.signal(SIGTERM);
    static_cast<void>(m_process.wait());
}

} // namespace pallistrom::e2e
