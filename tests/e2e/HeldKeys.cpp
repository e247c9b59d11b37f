// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "HeldKeys.h"

#include "XConnection.h"

#include <xcb/xinput.h>

#include <cstddef>
#include <span>
#include <stdexcept>

namespace pallistrom::e2e {

namespace {

/// Adds the keys of a map of one bit per key code.
void append(std::vector<std::string>& keys,
            const std::string& device,
            std::span<const std::uint8_t> keyMap) {
    for (std::size_t key = 0; key < keyMap.size() * 8; ++key) {
        if (((unsigned{keyMap[key / 8]} >> (key % 8)) & 1U) != 0) {
            keys.push_back(device + ": " + std::to_string(key));
        }
    }
}

/// Adds the keys of one input device.
void appendKeysOf(std::vector<std::string>& keys,
                  const XConnection& connection,
                  const std::string& name,
                  std::uint8_t device) {
    const XReply<xcb_input_query_device_state_reply_t> state{xcb_input_query_device_state_reply(
        connection, xcb_input_query_device_state(connection, device), nullptr)};
    if (!state) {
        throw std::runtime_error{"the keys of \"" + name + "\" cannot be asked for"};
    }
    auto inputClass = xcb_input_query_device_state_classes_iterator(state.get());
    for (; inputClass.rem > 0; xcb_input_input_state_next(&inputClass)) {
        if (inputClass.data->class_id == XCB_INPUT_INPUT_CLASS_KEY) {
            // Every class begins as the general one does.
            const auto* keyClass = reinterpret_cast<const xcb_input_key_state_t*>(inputClass.data);
            append(keys, name, keyClass->keys);
        }
    }
}

bool isKeyboard(const xcb_input_xi_device_info_t& device) {
    return device.type == XCB_INPUT_DEVICE_TYPE_MASTER_KEYBOARD ||
           device.type == XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD ||
           device.type == XCB_INPUT_DEVICE_TYPE_FLOATING_SLAVE;
}

} // namespace

std::vector<std::string> heldKeys(const XConnection& connection) {
    std::vector<std::string> keys;
    const XReply<xcb_query_keymap_reply_t> keyMap{
        xcb_query_keymap_reply(connection, xcb_query_keymap(connection), nullptr)};
    const XReply<xcb_input_xi_query_device_reply_t> devices{xcb_input_xi_query_device_reply(
        connection, xcb_input_xi_query_device(connection, XCB_INPUT_DEVICE_ALL), nullptr)};
    if (!keyMap || !devices) {
        throw std::runtime_error{"the keys that are down cannot be asked for"};
    }
    append(keys, "core key map", keyMap->keys);
    auto device = xcb_input_xi_query_device_infos_iterator(devices.get());
    for (; device.rem > 0; xcb_input_xi_device_info_next(&device)) {
        if (isKeyboard(*device.data)) {
            const std::string name{
                xcb_input_xi_device_info_name(device.data),
                static_cast<std::size_t>(xcb_input_xi_device_info_name_length(device.data))};
            appendKeysOf(keys, connection, name, static_cast<std::uint8_t>(device.data->deviceid));
        }
    }
    return keys;
}

} // namespace pallistrom::e2e
