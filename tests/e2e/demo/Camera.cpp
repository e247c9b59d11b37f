// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "Camera.h"

#include "Deadline.h"
#include "Screenshot.h"

#include <chrono>
#include <limits>
#include <stdexcept>
#include <utility>

namespace pallistrom::e2e {

namespace {

/// Less than a text cursor takes from one blink to the next.
constexpr std::chrono::milliseconds stillness{100};

} // namespace

Camera::Camera(std::string display, std::filesystem::path folder)
    : m_display{std::move(display)}, m_folder{std::move(folder)}, m_connection{m_display} {}

void Camera::paintBackground() const {
    constexpr std::uint32_t slateBlue = 0x4a6484;
    const xcb_window_t root = m_connection.rootWindow();
    xcb_change_window_attributes(m_connection, root, XCB_CW_BACK_PIXEL, &slateBlue);
    xcb_clear_area(m_connection, 0, root, 0, 0, 0, 0);
    xcb_flush(m_connection);
}

void Camera::take(const std::string& name) {
    auto seen = pixels();
    Deadline stillUntil{stillness};
    const bool isStill = waitUntil([&] {
        auto now = pixels();
        if (now == m_last || now != seen) {
            seen = std::move(now);
            stillUntil = Deadline{stillness};
        }
        return stillUntil.hasPassed();
    });
    if (!isStill) {
        throw std::runtime_error{"the display does not come to rest"};
    }
    m_last = std::move(seen);
    saveScreenshot(m_display, m_folder / (name + ".png"));
}

std::vector<std::uint8_t> Camera::pixels() const {
    const xcb_window_t root = m_connection.rootWindow();
    const XReply<xcb_get_geometry_reply_t> size{
        xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, root), nullptr)};
    if (!size) {
        throw std::runtime_error{"the display is gone"};
    }
    const auto cookie = xcb_get_image(m_connection,
                                      XCB_IMAGE_FORMAT_Z_PIXMAP,
                                      root,
                                      0,
                                      0,
                                      size->width,
                                      size->height,
                                      std::numeric_limits<std::uint32_t>::max());
    const XReply<xcb_get_image_reply_t> image{xcb_get_image_reply(m_connection, cookie, nullptr)};
    if (!image) {
        throw std::runtime_error{"the display shows no picture"};
    }
    const std::uint8_t* const first = xcb_get_image_data(image.get());
    return {first, first + xcb_get_image_data_length(image.get())};
}

} // namespace pallistrom::e2e
