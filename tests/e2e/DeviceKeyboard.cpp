// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "DeviceKeyboard.h"

#include <xcb/xinput.h>
#include <xcb/xtest.h>

#include <cctype>
#include <map>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace pallistrom::e2e {

namespace {

// The numbers that X servers on Linux give to keys: those of the kernel, and eight more.
const std::map<std::string, xcb_keycode_t, std::less<>>& keys() {
    static const auto all = [] {
        std::map<std::string, xcb_keycode_t, std::less<>> made{
            {"shift", 50},
            {"ctrl", 37},
            {"alt", 64},
            {"super", 133},
            {"BackSpace", 22},
            {"Delete", 119},
            {"Home", 110},
            {"End", 115},
            {"Return", 36},
            {"Down", 116},
            {"space", 65},
            {"period", 60},
            {"Scroll_Lock", 78},
            {"Caps_Lock", 66},
            {"Num_Lock", 77},
        };
        const auto addRow = [&made](xcb_keycode_t first, std::string_view letters) {
            for (const char letter : letters) {
                made.emplace(std::string(1, letter), first++);
            }
        };
        addRow(24, "qwertyuiop");
        addRow(38, "asdfghjkl");
        addRow(52, "zxcvbnm");
        return made;
    }();
    return all;
}

xcb_keycode_t keycodeOf(std::string_view key) {
    if (const auto found = keys().find(key); found != keys().end()) {
        return found->second;
    }
    if (!key.empty() && key.find_first_not_of("0123456789") == std::string_view::npos) {
        return static_cast<xcb_keycode_t>(std::stoi(std::string(key)));
    }
    throw std::runtime_error{"no key " + std::string(key)};
}

std::uint8_t findDevice(const XConnection& connection) {
    // The server tells more than it once did to those who say that they understand.
    const XReply<xcb_input_xi_query_version_reply_t> version{xcb_input_xi_query_version_reply(
        connection, xcb_input_xi_query_version(connection, 2, 2), nullptr)};
    const XReply<xcb_input_xi_query_device_reply_t> reply{xcb_input_xi_query_device_reply(
        connection, xcb_input_xi_query_device(connection, XCB_INPUT_DEVICE_ALL), nullptr)};
    auto device = xcb_input_xi_query_device_infos_iterator(reply.get());
    for (; device.rem > 0; xcb_input_xi_device_info_next(&device)) {
        const std::string_view name{
            xcb_input_xi_device_info_name(device.data),
            static_cast<std::size_t>(xcb_input_xi_device_info_name_length(device.data))};
        if (device.data->type == XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD &&
            name.find("XTEST") == std::string_view::npos) {
            return static_cast<std::uint8_t>(device.data->deviceid);
        }
    }
    throw std::runtime_error{"the X server has no keyboard of its own"};
}

} // namespace

DeviceKeyboard::DeviceKeyboard(const std::string& display)
    : m_connection{display}, m_device{findDevice(m_connection)} {}

void DeviceKeyboard::play(std::string_view script) const {
    std::istringstream words{std::string{script}};
    for (std::string word; words >> word;) {
        send(word.front() == '+', std::string_view{word}.substr(1));
    }
    sync();
}

void DeviceKeyboard::press(const std::string& chord) const {
    std::vector<std::string> held;
    std::istringstream parts{chord};
    for (std::string key; std::getline(parts, key, '+');) {
        send(true, key);
        held.insert(held.begin(), key);
    }
    for (const std::string& key : held) {
        send(false, key);
    }
    sync();
}

void DeviceKeyboard::type(std::string_view text) const {
    for (const char letter : text) {
        const bool isCapital = std::isupper(static_cast<unsigned char>(letter)) != 0;
        const auto small = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
        const std::string key = letter == ' '   ? "space"
                                : letter == '.' ? "period"
                                                : std::string(1, small);
        press(isCapital ? "shift+" + key : key);
    }
}

// The device's own events: one of the core protocol's would be the device of XTEST's.
void DeviceKeyboard::send(bool isPress, std::string_view key) const {
    const auto first = xcb_get_extension_data(m_connection, &xcb_input_id)->first_event;
    const int kind = isPress ? XCB_INPUT_DEVICE_KEY_PRESS : XCB_INPUT_DEVICE_KEY_RELEASE;
    xcb_test_fake_input(m_connection,
                        static_cast<std::uint8_t>(first + kind),
                        keycodeOf(key),
                        XCB_CURRENT_TIME,
                        XCB_WINDOW_NONE,
                        0,
                        0,
                        m_device);
}

void DeviceKeyboard::sync() const {
    const XReply<xcb_get_input_focus_reply_t> reply{
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr)};
}

} // namespace pallistrom::e2e
