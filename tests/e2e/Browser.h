// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "Home.h"
#include "TextState.h"
#include "XConnection.h"

#include <optional>
#include <string>

namespace pallistrom::e2e {

/// Chromium with a single tab, in it a page with a text area, which has the keyboard once this is
/// made. The page tells in its title what stands there, so nobody but the window manager is asked.
/// Throws std::runtime_error if it does not come up.
class Browser {
public:
    static const std::string program;

    explicit Browser(const std::string& display);

    /// What stands in the text area when the page is loaded, and again whenever `startKey` is
    /// pressed.
    static const TextState start;
    static const std::string startKey;

    /// Waits until the page says that it is in the state `wanted`. Returns what it says last; none
    /// if there is no page.
    [[nodiscard]] std::optional<TextState> waitFor(const TextState& wanted) const;

    /// Waits until the browser is no more, as when its last tab has been closed. Returns whether
    /// that came to pass in time.
    [[nodiscard]] bool waitUntilClosed() { return m_process.wait().has_value(); }

private:
    [[nodiscard]] std::optional<TextState> state() const;

    Home m_home;
    XConnection m_connection;
    ChildProcess m_process;
};

} // namespace pallistrom::e2e
