// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "XConnection.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace pallistrom::e2e {

/// Takes pictures of a display. They are for people to look at: no text is judged by them. Throws
/// std::runtime_error if it cannot.
class Camera {
public:
    /// The pictures go into `folder`.
    Camera(std::string display, std::filesystem::path folder);

    /// Gives the display a plain background from which windows can be cut out.
    void paintBackground() const;

    /// Takes the picture NAME.png. A field that tells of its new text has yet to draw it, so this
    /// waits until the display shows something new and is still.
    void take(const std::string& name);

private:
    std::vector<std::uint8_t> pixels() const;

    std::string m_display;
    std::filesystem::path m_folder;
    XConnection m_connection;
    std::vector<std::uint8_t> m_last;
};

} // namespace pallistrom::e2e
