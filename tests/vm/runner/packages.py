# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT
"""Debian packages that the emulated machine has and this one need not have.

They are fetched with this machine's own package lists, so that they suit its files, and unpacked
into the cache; nothing is installed.
"""
import hashlib
import os
import re
import shutil

from .common import Unavailable, cache_folder, output_of, say, write_text

_lists_are_fresh = False


def _with_lists(fetch):
    """Calls `fetch`; if it fails, because the lists are old, once more with new ones."""
    global _lists_are_fresh
    try:
        return fetch()
    except Unavailable:
        if _lists_are_fresh or os.geteuid() != 0:
            raise
        say("reading the package lists")
        output_of(["apt-get", "update"])
        _lists_are_fresh = True
        return fetch()


def _download(names, folder):
    """Fetches these packages without those that they depend on; returns their files."""
    os.makedirs(folder, exist_ok=True)
    say("fetching " + " ".join(name.partition("=")[0] for name in names))
    # Apt would read them as a user who may not write to the folder.
    output_of(["apt-get", "-o", "APT::Sandbox::User=root", "download", *names], cwd=folder)
    return sorted(os.path.join(folder, name)
                  for name in os.listdir(folder) if name.endswith(".deb"))


def unpack(files, into):
    """Unpacks packages into one tree, in which /bin, /lib and the like are in /usr, as here."""
    part = into + ".part"
    shutil.rmtree(part, ignore_errors=True)
    os.makedirs(part)
    for file in files:
        output_of(["dpkg-deb", "-x", file, part])
    for name in ("bin", "sbin", "lib", "lib64", "lib32", "libx32"):
        source = os.path.join(part, name)
        if os.path.isdir(source) and not os.path.islink(source):
            target = os.path.join(part, "usr", name)
            os.makedirs(target, exist_ok=True)
            output_of(["cp", "-a", source + "/.", target + "/"])
            shutil.rmtree(source)
    shutil.rmtree(into, ignore_errors=True)
    os.rename(part, into)


def unpacked(name):
    """Returns the tree of one package, without those that it depends on."""
    tree = os.path.join(cache_folder(), "packages", name)
    if not os.path.isdir(tree):
        files = _with_lists(lambda: _download([name], tree + ".files"))
        unpack(files, tree)
        shutil.rmtree(tree + ".files")
    return tree


def _missing(names):
    """Returns these packages, and what they need, as far as this machine lacks them."""
    plan = output_of(["apt-get", "install", "--simulate", "--no-install-recommends", *names],
                     env={**os.environ, "LC_ALL": "C"})
    return [f"{name}={version}"
            for name, version in re.findall(r"^Inst (\S+) (?:\[\S+\] )?\((\S+) ", plan, re.M)]


def layer(names):
    """Returns a tree with these packages and all they need, without what this machine has."""
    missing = _with_lists(lambda: _missing(names)) if names else []
    key = hashlib.sha256(" ".join(missing).encode()).hexdigest()[:12]
    tree = os.path.join(cache_folder(), "layers", key)
    if not os.path.isdir(tree):
        os.makedirs(os.path.dirname(tree), exist_ok=True)
        files = _download(missing, tree + ".files") if missing else []
        unpack(files, tree)
        shutil.rmtree(tree + ".files", ignore_errors=True)
        write_text(tree + ".list", "\n".join(missing) + "\n")
    return tree
