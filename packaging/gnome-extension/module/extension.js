// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT

// Tells Pallistrom which application is in front, while Pallistrom is there to hear it.
// For GNOME Shell from 45 on, where extensions are modules.

import Gio from 'gi://Gio';
import GLib from 'gi://GLib';
import Shell from 'gi://Shell';
import {Extension} from 'resource:///org/gnome/shell/extensions/extension.js';

@PALLISTROM_FRONT_TELLER@
export default class FrontExtension extends Extension {
    #teller = new FrontTeller();

    enable() {
        this.#teller.enable();
    }

    disable() {
        this.#teller.disable();
    }
}
