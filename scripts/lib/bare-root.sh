# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT
# shellcheck shell=bash

# A bare Debian 12 in a folder, to install packages into. To be sourced after packages.sh. Mounts
# stay in the mount namespace of the caller, which has to be one of its own.

cacheFolder=${XDG_CACHE_HOME:-$HOME/.cache}/pallistrom
bareRoot=$PWD/build/bare-root

# Made once, as that takes minutes. The smallest there is, and systemd, which every desktop has.
make_bare_tar() {
    local file=$1 root=$PWD/build/bare-root.new
    rm -rf "$root"
    mkdir -p "$cacheFolder" "$(dirname "$root")"
    debootstrap --variant=minbase --include=systemd bookworm "$root"
    tar -C "$root" --numeric-owner --xattrs -cf "$file.new" .
    rm -rf "$root"
    mv "$file.new" "$file"
}

unpack_bare_root() {
    local archive=$1
    # Or what is mounted there would go, too.
    if grep -F " $bareRoot/" /proc/self/mounts; then
        return 1
    fi
    rm -rf "$bareRoot"
    mkdir -p "$bareRoot" "$cacheFolder/packages/partial"
    tar -C "$bareRoot" --numeric-owner --xattrs -xf "$archive"
    # Nothing is to be started by an installation here.
    printf '#!/bin/sh\nexit 101\n' >"$bareRoot/usr/sbin/policy-rc.d"
    chmod +x "$bareRoot/usr/sbin/policy-rc.d"
    cp /etc/resolv.conf "$bareRoot/etc/resolv.conf"
}

mount_bare_root() {
    mount --bind "$cacheFolder/packages" "$bareRoot/var/cache/apt/archives"
    # With it come the sockets of displays and buses.
    mount --bind /tmp "$bareRoot/tmp"
    mount -t proc proc "$bareRoot/proc"
}

in_root() {
    chroot "$bareRoot" env -i PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
        HOME=/root LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"
}

apt_in_root() {
    in_root apt-get -q -y --no-install-recommends "$@"
}

# What package managers note down for themselves, whatever they install, and what is of no package.
ignored_paths() {
    cat <<'TEXT'
/etc/.pwd.lock
/etc/group-
/etc/gshadow-
/etc/passwd-
/etc/shadow-
/etc/subgid-
/etc/subuid-
/home
/proc
/run
/tmp
/var/cache/apt
/var/cache/debconf
/var/cache/ldconfig/aux-cache
/var/lib/apt
/var/lib/dpkg/lock
/var/lib/dpkg/lock-frontend
/var/lib/dpkg/status-old
/var/lib/dpkg/triggers/Lock
/var/lib/systemd/deb-systemd-helper-enabled/.timestamp
/var/log/alternatives.log
/var/log/apt
/var/log/dpkg.log
TEXT
}

# list_root: a line for each file: kind, rights, owner, path and target of a link; and its check sum.
list_root() {
    local path prune=()
    while read -r path; do
        prune+=(-path ".$path" -o)
    done < <(ignored_paths)
    (
        cd "$bareRoot" || exit
        find . -xdev \( "${prune[@]}" -false \) -prune -o -printf '%y %m %U:%G %p %l\n'
        find . -xdev \( "${prune[@]}" -false \) -prune -o -type f -print0 | xargs -0 sha256sum
    ) | LC_ALL=C sort
}
