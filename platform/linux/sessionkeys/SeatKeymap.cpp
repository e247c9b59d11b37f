// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sessionkeys/SeatKeymap.h"

#include "platform/linux/sessionkeys/KeymapFile.h"

#include <wayland-client-protocol.h>

#include <algorithm>
#include <utility>

namespace pallistrom {

namespace {

/// The first that can be told of a keyboard's end.
constexpr std::uint32_t wantedVersion = WL_KEYBOARD_RELEASE_SINCE_VERSION;

// What only a client with a window is told. The library wants somebody to listen all the same.
// clang-format off
void seatName(void* /*self*/, wl_seat* /*seat*/, const char* /*name*/) {}
void enter(void* /*self*/, wl_keyboard* /*keyboard*/, std::uint32_t /*serial*/, wl_surface* /*surface*/,
           wl_array* /*keys*/) {}
void leave(void* /*self*/, wl_keyboard* /*keyboard*/, std::uint32_t /*serial*/, wl_surface* /*surface*/) {}
void key(void* /*self*/, wl_keyboard* /*keyboard*/, std::uint32_t /*serial*/, std::uint32_t /*time*/,
         std::uint32_t /*key*/, std::uint32_t /*state*/) {}
void modifiers(void* /*self*/, wl_keyboard* /*keyboard*/, std::uint32_t /*serial*/, std::uint32_t /*depressed*/,
               std::uint32_t /*latched*/, std::uint32_t /*locked*/, std::uint32_t /*group*/) {}
void repeatInfo(void* /*self*/, wl_keyboard* /*keyboard*/, std::int32_t /*rate*/, std::int32_t /*delay*/) {}

// clang-format on

} // namespace

SeatKeymap::SeatKeymap(wl_registry* registry,
                       std::uint32_t name,
                       std::uint32_t version,
                       std::function<void(const std::string& text)> take)
    : m_take(std::move(take)),
      m_seat(static_cast<wl_seat*>(
          wl_registry_bind(registry, name, &wl_seat_interface, std::min(version, wantedVersion)))) {
    static constexpr wl_seat_listener listener{.capabilities = seatCan, .name = seatName};
    wl_seat_add_listener(m_seat, &listener, this);
}

SeatKeymap::~SeatKeymap() {
    setHasKeyboard(false);
    // The seat of this version has no request for its end.
    wl_seat_destroy(m_seat);
}

void SeatKeymap::seatCan(void* self, wl_seat* /*seat*/, std::uint32_t capabilities) {
    static_cast<SeatKeymap*>(self)->setHasKeyboard((capabilities & WL_SEAT_CAPABILITY_KEYBOARD) !=
                                                   0);
}

void SeatKeymap::setHasKeyboard(bool hasKeyboard) {
    static constexpr wl_keyboard_listener listener{.keymap = keymap,
                                                   .enter = enter,
                                                   .leave = leave,
                                                   .key = key,
                                                   .modifiers = modifiers,
                                                   .repeat_info = repeatInfo};
    if (hasKeyboard && m_keyboard == nullptr) {
        m_keyboard = wl_seat_get_keyboard(m_seat);
        wl_keyboard_add_listener(m_keyboard, &listener, this);
    } else if (!hasKeyboard && m_keyboard != nullptr) {
        if (wl_keyboard_get_version(m_keyboard) >= WL_KEYBOARD_RELEASE_SINCE_VERSION) {
            wl_keyboard_release(m_keyboard);
        } else {
            wl_keyboard_destroy(m_keyboard);
        }
        m_keyboard = nullptr;
    }
}

void SeatKeymap::keymap(void* self,
                        wl_keyboard* /*keyboard*/,
                        std::uint32_t format,
                        int descriptor,
                        std::uint32_t size) {
    const std::string text = KeymapFile::take(descriptor, size);
    if (format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1 && !text.empty()) {
        static_cast<SeatKeymap*>(self)->m_take(text);
    }
}

} // namespace pallistrom
