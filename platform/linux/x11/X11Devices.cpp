// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Devices.h"

#include <algorithm>
#include <span>
#include <string_view>

namespace pallistrom {

namespace {

XcbOwned<xcb_input_xi_query_device_reply_t> queryDevices(xcb_connection_t* connection) {
    return xcbReply(connection,
                    xcb_input_xi_query_device(connection, XCB_INPUT_DEVICE_ALL),
                    xcb_input_xi_query_device_reply);
}

template<typename Use>
void forEachDevice(const xcb_input_xi_query_device_reply_t& reply, const Use& use) {
    auto device = xcb_input_xi_query_device_infos_iterator(&reply);
    for (; device.rem > 0; xcb_input_xi_device_info_next(&device)) {
        use(*device.data,
            std::string_view(
                xcb_input_xi_device_info_name(device.data),
                static_cast<std::size_t>(xcb_input_xi_device_info_name_length(device.data))));
    }
}

// Returns the keys in a map of one bit for each keycode.
KeySet keysIn(std::span<const std::uint8_t> map, const X11KeyPositions& positions) {
    KeySet keys;
    for (std::size_t keycode = 0; keycode < map.size() * 8; ++keycode) {
        const auto code = positions.evdevCode(static_cast<xcb_keycode_t>(keycode));
        if (code && hasKeycode(map, keycode)) {
            keys.set(*code);
        }
    }
    return keys;
}

using StateCookies = std::vector<xcb_input_query_device_state_cookie_t>;

StateCookies askStates(xcb_connection_t* connection, const std::vector<std::uint16_t>& devices) {
    StateCookies cookies;
    cookies.reserve(devices.size());
    for (const std::uint16_t device : devices) {
        cookies.push_back(
            xcb_input_query_device_state(connection, static_cast<std::uint8_t>(device)));
    }
    return cookies;
}

KeySet keysIn(xcb_connection_t* connection,
              const StateCookies& cookies,
              const X11KeyPositions& positions) {
    KeySet keys;
    for (const auto cookie : cookies) {
        const auto reply = xcbReply(connection, cookie, xcb_input_query_device_state_reply);
        if (!reply) {
            continue; // The keyboard was unplugged a moment ago.
        }
        auto state = xcb_input_query_device_state_classes_iterator(reply.get());
        for (; state.rem > 0; xcb_input_input_state_next(&state)) {
            if (state.data->class_id == XCB_INPUT_INPUT_CLASS_KEY) {
                const auto* const keyState =
                    reinterpret_cast<const xcb_input_key_state_t*>(state.data);
                keys |= keysIn(keyState->keys, positions);
            }
        }
    }
    return keys;
}

} // namespace

X11Devices::X11Devices(const X11Connection& connection) : m_connection(connection) {
    xcb_connection_t* const c = connection.get();
    if (const auto* const extension = xcb_get_extension_data(c, &xcb_input_id)) {
        m_opcode = extension->major_opcode;
    }
    // The server keeps the newer requests from those who have not said what they understand.
    xcbReply(c, xcb_input_xi_query_version(c, 2, 2), xcb_input_xi_query_version_reply);

    select(XCB_INPUT_DEVICE_ALL, XCB_INPUT_XI_EVENT_MASK_HIERARCHY);
    refresh();
}

void X11Devices::select(std::uint16_t devices, std::uint32_t events) {
    struct {
        xcb_input_event_mask_t head;
        std::uint32_t events;
    } const mask{.head = {.deviceid = devices, .mask_len = 1}, .events = events};

    xcb_input_xi_select_events(m_connection.get(), m_connection.root(), 1, &mask.head);
}

bool X11Devices::isOfType(const xcb_generic_event_t& event, std::uint16_t type) const {
    if (event.response_type != XCB_GE_GENERIC) {
        return false;
    }
    const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
    return generic.extension == m_opcode && generic.event_type == type;
}

bool X11Devices::isChange(const xcb_generic_event_t& event) const {
    return isOfType(event, XCB_INPUT_HIERARCHY);
}

void X11Devices::watchReleases(bool watch) {
    const std::uint32_t events = XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE;
    select(XCB_INPUT_DEVICE_ALL_MASTER, watch ? events : 0U);
}

std::optional<X11KeyRelease> X11Devices::release(const xcb_generic_event_t& event) const {
    if (!isOfType(event, XCB_INPUT_RAW_KEY_RELEASE)) {
        return std::nullopt;
    }
    const auto& release = reinterpret_cast<const xcb_input_raw_key_release_event_t&>(event);
    const bool isReal =
        std::find(m_keyboards.begin(), m_keyboards.end(), release.sourceid) != m_keyboards.end();
    return X11KeyRelease{.keycode = static_cast<xcb_keycode_t>(release.detail),
                         .source = isReal ? X11KeyRelease::Source::RealKeyboard
                                          : X11KeyRelease::Source::XTest};
}

void X11Devices::refresh() {
    m_keyboards.clear();
    m_testKeyboards.clear();
    const auto reply = queryDevices(m_connection.get());
    if (!reply) {
        return;
    }
    forEachDevice(*reply, [this](const auto& device, std::string_view name) {
        if (device.type == XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD) {
            const bool isOfXTest = name.ends_with("XTEST keyboard");
            (isOfXTest ? m_testKeyboards : m_keyboards).push_back(device.deviceid);
        }
    });
}

X11Devices::Question X11Devices::ask() const {
    xcb_connection_t* const c = m_connection.get();
    return {.shown = xcb_query_keymap(c),
            .real = askStates(c, m_keyboards),
            .made = askStates(c, m_testKeyboards)};
}

X11HeldKeys X11Devices::answer(const Question& question, const X11KeyPositions& positions) const {
    xcb_connection_t* const c = m_connection.get();
    X11HeldKeys held;
    if (const auto map = xcbReply(c, question.shown, xcb_query_keymap_reply)) {
        held.shown = keysIn(map->keys, positions);
    }
    held.real = keysIn(c, question.real, positions);
    const KeySet made = keysIn(c, question.made, positions);
    held.physical = held.real | (made & held.shown);
    held.forgotten = made & ~held.shown;
    return held;
}

bool X11Devices::areOfXWayland(const X11Connection& connection) {
    if (!connection.hasExtension("XInputExtension")) {
        return false;
    }
    const auto reply = queryDevices(connection.get());
    bool found = false;
    if (reply) {
        forEachDevice(*reply, [&found](const auto& /*device*/, std::string_view name) {
            found = found || name.starts_with("xwayland-");
        });
    }
    return found;
}

} // namespace pallistrom
