// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/access/AccessText.h"

#include "pallistrom/Names.h"

#include <string_view>

namespace pallistrom {

namespace {

using KeyboardInterface::GrantAnswer;

std::string notGranted(const std::optional<GrantAnswer>& answer) {
    switch (answer.value_or(GrantAnswer::Granted)) {
    case GrantAnswer::Denied:
        return "The permission was not given. Switch it on to be asked again.";
    case GrantAnswer::NoAgent:
        return "No authentication agent is running, so nobody can be asked for a password. "
               "Desktops bring one along; start it, or install one such as lxpolkit, and try "
               "again.";
    case GrantAnswer::Busy:
        return "You are being asked already. Answer there first.";
    case GrantAnswer::Granted:
        break;
    }
    return "Switch it on to let the keyboard service change your shortcut keys. That takes the "
           "password of an administrator.";
}

// What is in the way of the keyboard service, and how to mend it.
std::string aboutService(Obstacle obstacle, const std::optional<GrantAnswer>& answer) {
    switch (obstacle) {
    case Obstacle::NoSystemBus:
        return "The keyboard service cannot be reached: the system bus does not answer.";
    case Obstacle::ServiceNotInstalled:
        return "The keyboard service is not installed. It comes with the package " +
               std::string(Names::servicePackage) + ".";
    case Obstacle::ServiceSilent:
        return "The keyboard service does not answer. If that stays so, the system log may say "
               "why:\njournalctl --identifier=" +
               std::string(Names::serviceProgram);
    case Obstacle::ServiceMismatch:
        return "The keyboard service and this program are of different versions. Update both, "
               "then start Pallistrom again.";
    case Obstacle::NotGranted:
        return notGranted(answer);
    case Obstacle::Panicked:
        return "Backspace, Escape and Enter were pressed together, which lets all keys pass. "
               "Switch it on to go on.";
    case Obstacle::NotLocal:
        return "The keyboard service filters only for who sits at the computer itself, and this "
               "session is elsewhere.";
    case Obstacle::NoVirtualKeyboard:
        return "The keyboard service can make no virtual keyboard here. The kernel module uinput "
               "may be missing.";
    case Obstacle::WaylandSession:
    case Obstacle::NoDisplay:
    case Obstacle::NoXTest:
        break;
    }
    return {};
}

std::string headlineFor(const std::optional<Obstacle>& obstacle) {
    if (!obstacle) {
        return "Pallistrom can filter keys here";
    }
    return obstacle == Obstacle::NotGranted ? "Pallistrom may not filter keys yet"
                                            : "Pallistrom cannot filter keys here";
}

} // namespace

AccessText AccessText::about(const AccessState& state) {
    AccessText text{.headline = headlineFor(state.session), .explanation = {}};
    if (state.request.isOpen) {
        text.explanation = "You are asked in another window whether the keyboard service may "
                           "change your shortcut keys.";
    } else if (!state.service) {
        text.explanation = "The keyboard service does it, in every session of yours. Keys stay "
                           "inside of it: it never logs or sends them anywhere.";
    } else {
        text.explanation = aboutService(*state.service, state.request.answer);
    }
    if (!state.session && state.service) {
        text.explanation = "This is an X11 session, so it works without the keyboard service, "
                           "which Wayland sessions need.\n\n" +
                           text.explanation;
    }
    return text;
}

} // namespace pallistrom
