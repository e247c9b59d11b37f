// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

struct wl_keyboard;
struct wl_registry;
struct wl_seat;
struct wl_surface;
struct wl_array;

namespace pallistrom {

/// Follows the keymap of one seat of a compositor. Of the keyboard itself nothing is seen, since
/// keys go to the client whose window has the focus, and we have none here.
class SeatKeymap {
public:
    /// `take` is called with the text of each keymap.
    SeatKeymap(wl_registry* registry,
               std::uint32_t name,
               std::uint32_t version,
               std::function<void(const std::string& text)> take);
    SeatKeymap(const SeatKeymap&) = delete;
    SeatKeymap& operator=(const SeatKeymap&) = delete;
    ~SeatKeymap();

private:
    static void seatCan(void* self, wl_seat* seat, std::uint32_t capabilities);
    static void keymap(void* self,
                       wl_keyboard* keyboard,
                       std::uint32_t format,
                       int descriptor,
                       std::uint32_t size);

    void setHasKeyboard(bool hasKeyboard);

    std::function<void(const std::string& text)> m_take;
    wl_seat* m_seat;                   ///< never null
    wl_keyboard* m_keyboard = nullptr; ///< while the seat has one
};

} // namespace pallistrom
