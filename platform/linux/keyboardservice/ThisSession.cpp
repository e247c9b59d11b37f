// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/keyboardservice/ThisSession.h"

#include "platform/linux/SessionPaths.h"
#include "platform/linux/keyboardservice/KeyboardInterface.h"

#include <systemd/sd-login.h>

#include <cstdlib>
#include <memory>
#include <string_view>

namespace pallistrom::ThisSession {

namespace {

struct Free {
    void operator()(char* text) const noexcept {
        std::free(text); // NOLINT(cppcoreguidelines-no-malloc)
    }
};

} // namespace

// The environment is not always that of the session: programs that outlive sessions, as the user's
// service manager and terminal multiplexers, hand on what they were started with.
std::string name() {
    const std::string id = SessionPaths::variable("XDG_SESSION_ID");
    char* found = nullptr;
    if (!KeyboardInterface::isSessionName(id) || sd_session_get_class(id.c_str(), &found) < 0) {
        return {};
    }
    const std::unique_ptr<char, Free> kind(found);
    return std::string_view(kind.get()) == "user" ? id : std::string();
}

} // namespace pallistrom::ThisSession
