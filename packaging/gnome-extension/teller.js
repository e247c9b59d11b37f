// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT

// What the extension does, whichever way GNOME Shell loads it. The build puts it in both.

const busName = '@PALLISTROM_FRONT_BUS_NAME@';

class FrontTeller {
    enable() {
        this._tracker = Shell.WindowTracker.get_default();
        this._handlers = [
            [this._tracker, this._tracker.connect('notify::focus-app', () => this._tell())],
            [global.display, global.display.connect('notify::focus-window', () => this._tell())],
        ];
        this._watch = Gio.bus_watch_name(
            Gio.BusType.SESSION, busName, Gio.BusNameWatcherFlags.NONE,
            () => this._begin(), () => this._end());
    }

    disable() {
        this._call('Leave');
        this._end();
        Gio.bus_unwatch_name(this._watch);
        this._handlers.forEach(([object, handler]) => object.disconnect(handler));
        this._handlers = [];
        this._tracker = null;
    }

    _begin() {
        this._isHeard = true;
        this._tell();
    }

    _end() {
        this._isHeard = false;
        this._told = null;
    }

    // An application and its window come to the front one after the other; what has been said
    // already is not said again.
    _tell() {
        const window = global.display.focus_window;
        const application = this._tracker.focus_app;
        // The shell makes an application up for a window that belongs to none.
        const id = application?.is_window_backed() ? '' : application?.get_id();
        if (window)
            this._say('ShowWindow', [id ?? '', window.get_wm_class() ?? '']);
        else
            this._say('ShowNobody', []);
    }

    _say(method, texts) {
        const said = [method, ...texts].join('\n');
        if (this._isHeard && said !== this._told) {
            this._told = said;
            this._call(method, texts);
        }
    }

    _call(method, texts = []) {
        if (!this._isHeard)
            return;
        const parameters = texts.length ? new GLib.Variant(`(${'s'.repeat(texts.length)})`, texts) : null;
        Gio.DBus.session.call(
            busName, '@PALLISTROM_FRONT_OBJECT@', busName, method, parameters, null,
            Gio.DBusCallFlags.NO_AUTO_START, -1, null, null);
    }
}
