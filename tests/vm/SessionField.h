// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "TextState.h"
#include "WaylandSession.h"

#include <cstdint>
#include <string>

namespace pallistrom::vm {

/// A window with a text field in a session of the emulated machine. It has the keyboard once it is
/// made. Throws std::runtime_error if it does not come up.
class SessionField {
public:
    enum class Display : std::uint8_t { Wayland, X };

    /// `program` is the name of a field program of the end-to-end tests.
    SessionField(const WaylandSession& session,
                 const std::string& program,
                 Display display = Display::Wayland);

    /// Replaces the text; the cursor is at its end.
    void set(const std::string& text);

    /// Waits until exactly this is in the field. Returns what is in it then, wanted or not.
    [[nodiscard]] std::string waitFor(const std::string& text);

private:
    bool readText();

    ChildProcess m_process;
    std::string m_text;
};

} // namespace pallistrom::vm
