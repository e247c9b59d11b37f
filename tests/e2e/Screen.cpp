// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Screen.h"

#include "ChildProcess.h"
#include "Home.h"

#include <array>
#include <cstring>
#include <span>
#include <stdexcept>
#include <string_view>

namespace pallistrom::e2e {

Screen::Screen(const std::string& display) : m_display{display}, m_connection{display} {}

int Screen::brightPixels(Area area) const {
    const XReply<xcb_get_image_reply_t> image{
        xcb_get_image_reply(m_connection,
                            xcb_get_image(m_connection,
                                          XCB_IMAGE_FORMAT_Z_PIXMAP,
                                          m_connection.rootWindow(),
                                          area.x,
                                          area.y,
                                          area.width,
                                          area.height,
                                          ~0U),
                            nullptr)};
    if (!image) {
        throw std::runtime_error{"the X server gives no picture"};
    }
    const std::span bytes{xcb_get_image_data(image.get()),
                          static_cast<std::size_t>(xcb_get_image_data_length(image.get()))};
    int count = 0;
    constexpr std::size_t pixelSize = 4;
    constexpr std::size_t green = 1;
    for (std::size_t pixel = 0; pixel + pixelSize <= bytes.size(); pixel += pixelSize) {
        count += bytes[pixel + green] > 127 ? 1 : 0;
    }
    return count;
}

xcb_window_t Screen::findWindow(const std::string& title) const {
    const Home home;
    ChildProcess search{
        {.arguments = {"xdotool", "search", "--onlyvisible", "--name", '^' + title + '$'},
         .environment = home.environment(m_display),
         // It may complain of windows that go while it looks at them.
         .errorFile = home.path() / "search.log"}};
    const std::string number = search.readLine().value_or("");
    return search.wait() == 0 ? static_cast<xcb_window_t>(std::stoul(number)) : XCB_NONE;
}

bool Screen::hasWindow(const std::string& title) const {
    return findWindow(title) != XCB_NONE;
}

void Screen::closeWindow(const std::string& title) const {
    ask("_NET_CLOSE_WINDOW", title);
}

void Screen::bringToFront(const std::string& title) const {
    ask("_NET_ACTIVE_WINDOW", title);
}

void Screen::ask(std::string_view request, const std::string& title) const {
    constexpr std::uint32_t forAPerson = 2; // Who asks, in those requests that want to know.
    const XReply<xcb_intern_atom_reply_t> atom{xcb_intern_atom_reply(
        m_connection,
        xcb_intern_atom(
            m_connection, 0, static_cast<std::uint16_t>(request.size()), request.data()),
        nullptr)};
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = findWindow(title);
    if (!atom || event.window == XCB_NONE) {
        throw std::runtime_error{"there is no such window: " + title};
    }
    event.type = atom->atom;
    event.data.data32[0] = request == "_NET_ACTIVE_WINDOW" ? forAPerson : 0;
    std::array<char, sizeof event> bytes{};
    std::memcpy(bytes.data(), &event, sizeof event);
    xcb_send_event(m_connection,
                   0,
                   m_connection.rootWindow(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   bytes.data());
    xcb_flush(m_connection);
}

void Screen::click(int x, int y, int button) const {
    const Home home;
    run({.arguments = {"xdotool",
                       "mousemove",
                       std::to_string(x),
                       std::to_string(y),
                       "click",
                       std::to_string(button)},
         .environment = home.environment(m_display)});
}

} // namespace pallistrom::e2e
