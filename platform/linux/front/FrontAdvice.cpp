// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/FrontAdvice.h"

namespace pallistrom {

FrontAdvice FrontAdvice::about(GnomeExtension::State extension) {
    switch (extension) {
    case GnomeExtension::State::SwitchedOff:
        return {.text = "Terminals cannot be told apart here, so the shortcuts apply in them too. "
                        "GNOME tells Pallistrom which application is in front once Pallistrom's "
                        "extension is switched on.",
                .offersTheExtension = true};
    case GnomeExtension::State::Missing:
        return {.text = "Terminals cannot be told apart here, so the shortcuts apply in them too. "
                        "GNOME has not found Pallistrom's extension: if it has just been "
                        "installed, log out and in again."};
    case GnomeExtension::State::Broken:
        return {.text = "Terminals cannot be told apart here, so the shortcuts apply in them too. "
                        "GNOME could not start Pallistrom's extension."};
    case GnomeExtension::State::SwitchedOn:
    case GnomeExtension::State::NoShell:
        break;
    }
    return {.text = "Terminals cannot be told apart here, so the shortcuts apply in them too. This "
                    "desktop does not say which application is in front. An X11 session does, and "
                    "so do GNOME, KDE Plasma, COSMIC, sway and their like."};
}

} // namespace pallistrom
