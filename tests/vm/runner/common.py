# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT
"""What all parts of the runner need."""
import os
import shlex
import subprocess
import sys


class Unavailable(Exception):
    """No machine can be emulated here, for the reason that it says."""


def say(text):
    print(f"vm-run: {text}", file=sys.stderr, flush=True)


def cache_folder():
    """Where everything is kept that was fetched or built, for the next run."""
    folder = os.environ.get("VM_CACHE")
    if not folder:
        caches = os.environ.get("XDG_CACHE_HOME") or os.path.expanduser("~/.cache")
        folder = os.path.join(caches, "pallistrom-vm")
    os.makedirs(folder, exist_ok=True)
    return folder


def output_of(command, **settings):
    """Runs a command and returns what it prints; Unavailable if it fails."""
    try:
        return subprocess.run(command, check=True, text=True, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, **settings).stdout
    except FileNotFoundError as error:
        raise Unavailable(f"{command[0]} is not installed") from error
    except subprocess.CalledProcessError as error:
        last_words = (error.stderr.strip().splitlines() or ["no word of explanation"])[-1]
        raise Unavailable(f"{shlex.join(command)[:200]}: {last_words}") from error


def read_text(path):
    with open(path, encoding="utf-8", errors="replace") as file:
        return file.read()


def write_text(path, text):
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
