// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT

// Tells Pallistrom which window is in front. KWin runs it while Pallistrom does; a call that nobody
// answers starts nothing.

// Plasma 6 calls windows what Plasma 5 called clients.
const activated = workspace.windowActivated || workspace.clientActivated;

let front = null;

function call(method, ...texts) {
    callDBus("@PALLISTROM_FRONT_BUS_NAME@", "@PALLISTROM_FRONT_OBJECT@",
             "@PALLISTROM_FRONT_BUS_NAME@", method, ...texts);
}

function tell() {
    if (front) {
        call("ShowWindow", String(front.resourceName || ""), String(front.resourceClass || ""));
    } else {
        call("ShowNobody");
    }
}

// A window may say only after it has come to the front whose it is.
function follow(window) {
    if (front && front.windowClassChanged) {
        front.windowClassChanged.disconnect(tell);
    }
    front = window || null;
    if (front && front.windowClassChanged) {
        front.windowClassChanged.connect(tell);
    }
    tell();
}

activated.connect(follow);
follow(workspace.activeWindow || workspace.activeClient);
