# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT
# shellcheck shell=bash

# A person of the bare system, who has a display and a session bus for a moment. To be sourced after
# bare-root.sh.

: "${bareRoot:?}"
person=1000
home=/home/person
entry=$home/.config/autostart/org.pallistrom.Pallistrom.desktop

# as_person COMMAND...: outside of the root, but with its person's number, display and bus.
as_person() {
    setpriv --reuid "$person" --regid "$person" --clear-groups env -i PATH="$PATH" HOME="$scratch" \
        XDG_RUNTIME_DIR="$scratch" DISPLAY="$display" DBUS_SESSION_BUS_ADDRESS="unix:path=$scratch/bus" "$@"
}

start_session() {
    scratch=$(mktemp -d)
    chown "$person" "$scratch"
    coproc DISPLAY_NUMBER { exec Xvfb -displayfd 1 -screen 0 1000x700x24 -nolisten tcp -ac 2>/dev/null; }
    sessionProcesses=("$DISPLAY_NUMBER_PID")
    read -r display <&"${DISPLAY_NUMBER[0]}"
    display=:$display
    as_person openbox >/dev/null 2>&1 &
    sessionProcesses+=($!)
    as_person dbus-daemon --session --nofork --address="unix:path=$scratch/bus" >/dev/null 2>&1 &
    sessionProcesses+=($!)
    wait_until 'the session bus' test -S "$scratch/bus"
}

end_session() {
    kill "${sessionProcesses[@]}"
    wait
    rm -rf "$scratch"
}

# wait_until WHAT COMMAND...: looks again and again, for a minute at most.
wait_until() {
    local what=$1 end=$((SECONDS + 60))
    shift
    until "$@" >/dev/null 2>&1; do
        if ((SECONDS > end)); then
            echo "$what: waited in vain"
            return 1
        fi
        sleep 0.1
    done
}

call_program() {
    as_person gdbus call --session --dest org.pallistrom.Pallistrom --object-path /org/pallistrom/Pallistrom \
        --method "org.freedesktop.Application.$1" "${@:2}"
}

# Goes with Tab from switch to switch, until one has made the entry.
switch_on_login_item() {
    as_person xdotool search --sync --onlyvisible --name Settings windowactivate --sync >/dev/null
    for _ in {1..12}; do
        as_person xdotool key Tab key space
        if wait_briefly test -e "$bareRoot$entry"; then
            return
        fi
    done
    echo 'no switch makes an entry'
    return 1
}

wait_briefly() {
    for _ in {1..10}; do
        "$@" && return
        sleep 0.1
    done
    return 1
}

# A person's own start, as the session makes it: first by hand, and asked to start at login.
start_at_login() {
    local program
    start_session
    chroot --userspec "$person:$person" "$bareRoot" env -i PATH=/usr/bin HOME="$home" XDG_RUNTIME_DIR="$scratch" \
        XDG_SESSION_TYPE=x11 DISPLAY="$display" DBUS_SESSION_BUS_ADDRESS="unix:path=$scratch/bus" LC_ALL=C.UTF-8 \
        QT_QPA_PLATFORM=xcb /usr/bin/pallistrom &
    program=$!
    wait_until 'the program on the bus' call_program ActivateAction showSettings '[]' '{}'
    switch_on_login_item
    cat "$bareRoot$entry"
    call_program ActivateAction quit '[]' '{}'
    wait "$program"
    end_session
}
