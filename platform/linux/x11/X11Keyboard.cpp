// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Keyboard.h"

#include "platform/linux/sessionkeys/KeymapModifiers.h"
#include "platform/linux/sessionkeys/X11Keymap.h"

// A field of its protocol is called "explicit".
#ifdef __clang__
#pragma clang diagnostic ignored "-Wkeyword-macro"
#endif
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string>

namespace pallistrom {

namespace {

// What a key does that the modifier map has at `bit`.
Modifier modifierOf(std::size_t bit, xcb_keysym_t symbol) {
    switch (bit) {
    case XCB_MAP_INDEX_SHIFT:
        return Modifier::Shift;
    case XCB_MAP_INDEX_LOCK:
        return Modifier::CapsLock;
    case XCB_MAP_INDEX_CONTROL:
        return Modifier::Control;
    default:
        return modifierOfSymbol(symbol);
    }
}

class Symbols {
public:
    explicit Symbols(xcb_connection_t* connection)
        : m_first(xcb_get_setup(connection)->min_keycode),
          m_reply(xcbReply(
              connection,
              xcb_get_keyboard_mapping(
                  connection,
                  m_first,
                  static_cast<std::uint8_t>(xcb_get_setup(connection)->max_keycode - m_first + 1)),
              xcb_get_keyboard_mapping_reply)) {}

    /// Returns the symbol of the key without modifiers.
    [[nodiscard]] xcb_keysym_t of(xcb_keycode_t keycode) const {
        if (!m_reply || keycode < m_first) {
            return XCB_NO_SYMBOL;
        }
        const auto index = (keycode - m_first) * m_reply->keysyms_per_keycode;
        if (index >= xcb_get_keyboard_mapping_keysyms_length(m_reply.get())) {
            return XCB_NO_SYMBOL;
        }
        return xcb_get_keyboard_mapping_keysyms(m_reply.get())[index];
    }

private:
    xcb_keycode_t m_first;
    XcbOwned<xcb_get_keyboard_mapping_reply_t> m_reply;
};

// Returns the type of XKB's events, or 0 where the server has no XKB. libxcb would give the
// connection up over a question to an extension that is not there.
std::uint8_t useXkb(const X11Connection& server) {
    if (!server.hasExtension("XKEYBOARD")) {
        return 0;
    }
    xcb_connection_t* const connection = server.get();
    const auto use =
        xcbReply(connection,
                 xcb_xkb_use_extension(connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION),
                 xcb_xkb_use_extension_reply);
    if (!use || use->supported == 0) {
        return 0;
    }
    // Whoever uses XKB is told of changes by XKB alone, and only on request.
    const std::uint16_t changes =
        XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    const std::uint16_t everyPart = 0xFF;
    xcb_xkb_select_events(
        connection, XCB_XKB_ID_USE_CORE_KBD, changes, 0, changes, everyPart, everyPart, nullptr);
    return xcb_get_extension_data(connection, &xcb_xkb_id)->first_event;
}

// Which keycode has which position.
std::vector<X11KeyPositions::Named> positionNames(xcb_connection_t* connection) {
    const auto reply = xcbReply(
        connection,
        xcb_xkb_get_names(connection, XCB_XKB_ID_USE_CORE_KBD, XCB_XKB_NAME_DETAIL_KEY_NAMES),
        xcb_xkb_get_names_reply);
    if (!reply) {
        return {};
    }
    xcb_xkb_get_names_value_list_t list{};
    xcb_xkb_get_names_value_list_unpack(xcb_xkb_get_names_value_list(reply.get()),
                                        reply->nTypes,
                                        reply->indicators,
                                        reply->virtualMods,
                                        reply->groupNames,
                                        reply->nKeys,
                                        reply->nKeyAliases,
                                        reply->nRadioGroups,
                                        reply->which,
                                        &list);
    std::vector<X11KeyPositions::Named> names;
    for (int i = 0; i < reply->nKeys; ++i) {
        const auto& name = list.keyNames[i].name;
        const auto length = strnlen(std::data(name), std::size(name));
        names.push_back({static_cast<xcb_keycode_t>(reply->firstKey + i),
                         std::string(std::data(name), length)});
    }
    return names;
}

} // namespace

X11Keyboard::X11Keyboard(const X11Connection& connection)
    : m_xkbEvent(useXkb(connection)),
      m_positions(m_xkbEvent != 0 ? positionNames(connection.get())
                                  : std::vector<X11KeyPositions::Named>()) {
    readKeymap(connection);
}

void X11Keyboard::readKeymap(const X11Connection& connection) {
    const auto keymap = m_xkbEvent != 0 ? X11Keymap::read(connection) : nullptr;
    if (!keymap) {
        readModifierMap(connection);
        return;
    }
    const auto modifiers = KeymapModifiers::of(*keymap);
    for (const auto& [keycode, modifier] : modifiers.keys) {
        if (const auto code = m_positions.evdevCode(static_cast<xcb_keycode_t>(keycode))) {
            m_modifiers.set(*code, modifier);
        }
    }
    std::transform(modifiers.bits.begin(), modifiers.bits.end(), m_flagsOfBit.begin(), flagOf);
}

// The core protocol knows keys that hold a bit, and one symbol for each.
void X11Keyboard::readModifierMap(const X11Connection& connection) {
    const Symbols symbols(connection.get());
    const auto map = xcbReply(connection.get(),
                              xcb_get_modifier_mapping(connection.get()),
                              xcb_get_modifier_mapping_reply);
    if (!map) {
        return;
    }
    const xcb_keycode_t* const keycodes = xcb_get_modifier_mapping_keycodes(map.get());
    for (std::size_t bit = 0; bit < modifierBits; ++bit) {
        for (std::size_t i = 0; i < map->keycodes_per_modifier; ++i) {
            const xcb_keycode_t keycode = keycodes[bit * map->keycodes_per_modifier + i];
            if (const auto code = m_positions.evdevCode(keycode)) {
                const Modifier modifier = modifierOf(bit, symbols.of(keycode));
                m_modifiers.set(*code, modifier);
                m_flagsOfBit.at(bit) |= flagOf(modifier);
            }
        }
    }
}

bool X11Keyboard::isChange(const xcb_generic_event_t& event) const {
    return event.response_type == XCB_MAPPING_NOTIFY ||
           (m_xkbEvent != 0 && event.response_type == m_xkbEvent);
}

CGEventFlags X11Keyboard::flagsOf(std::uint16_t state) const {
    CGEventFlags flags = 0;
    for (std::size_t bit = 0; bit < modifierBits; ++bit) {
        if (((unsigned{state} >> bit) & 1U) != 0) {
            flags |= m_flagsOfBit.at(bit);
        }
    }
    return flags;
}

std::vector<std::uint16_t> X11Keyboard::statesWith(CGEventFlags required,
                                                   CGEventFlags forbidden) const {
    std::vector<std::uint16_t> states;
    for (std::uint16_t state = 0; state < (1U << modifierBits); ++state) {
        const CGEventFlags flags = flagsOf(state);
        if ((flags & required) == required && (flags & forbidden) == 0) {
            states.push_back(state);
        }
    }
    return states;
}

} // namespace pallistrom
