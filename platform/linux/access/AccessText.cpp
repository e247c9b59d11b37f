// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/access/AccessText.h"

namespace pallistrom {

namespace {

std::string_view explanationOf(Obstacle obstacle) {
    switch (obstacle) {
    case Obstacle::WaylandSession:
        return "This is a Wayland session, which shows no program the keys of another one. "
               "Pallistrom works in an X11 session: log out, and choose one where you log in.";
    case Obstacle::NoDisplay:
        return "The X11 display of this session cannot be reached.";
    case Obstacle::NoXTest:
        return "This X11 display does not offer XTEST, by which Pallistrom sends the keys that "
               "take the place of yours. Whoever looks after the display can switch it on.";
    }
    return {};
}

} // namespace

AccessText AccessText::about(std::optional<Obstacle> obstacle) {
    if (obstacle) {
        return {.headline = "Pallistrom cannot filter keys here",
                .explanation = explanationOf(*obstacle)};
    }
    return {.headline = "Pallistrom can filter keys here",
            .explanation = "This is an X11 session, so there is nothing to grant. Only your "
                           "shortcut keys pass through Pallistrom, and it never logs or sends "
                           "them anywhere."};
}

} // namespace pallistrom
