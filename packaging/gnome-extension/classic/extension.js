// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT

// Tells Pallistrom which application is in front, while Pallistrom is there to hear it.
// For GNOME Shell before 45, where extensions are scripts.

const {Gio, GLib, Shell} = imports.gi;

@PALLISTROM_FRONT_TELLER@
// By this name the shell looks for it.
function init() {
    return new FrontTeller();
}
