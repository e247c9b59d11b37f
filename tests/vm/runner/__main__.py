# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT
"""Entry point: gets ready what a machine is made of, and runs one."""
import dataclasses
import fcntl
import os
import platform
import sys
import tempfile

from . import options, packages
from .common import Unavailable, cache_folder
from .initramfs import initramfs
from .kernel import Kernel
from .machine import GUEST_FOLDER, Machine

STATUS_SKIPPED = 77


@dataclasses.dataclass
class Parts:
    """What is fetched or built for a machine."""
    kernel: Kernel
    initramfs: str
    layer: str


def prepare(chosen):
    if platform.machine() != "x86_64":
        raise Unavailable("the emulated machine is an x86-64 one, with the programs of this one")
    wanted = ["kmod", *chosen.package]
    if chosen.udev:
        wanted.append("udev")
    if chosen.bus:
        wanted += ["dbus-daemon", "dbus-bin"]
    with open(os.path.join(cache_folder(), "lock"), "w", encoding="utf-8") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        kernel = Kernel()
        return Parts(kernel, initramfs(kernel, os.path.join(GUEST_FOLDER, "init")),
                     packages.layer(wanted))


def main():
    chosen = options.parse()
    try:
        parts = prepare(chosen)
    except Unavailable as reason:
        print(f"vm-run: Skipped\n{reason}")
        return STATUS_SKIPPED
    if chosen.prepare:
        return 0
    with tempfile.TemporaryDirectory(prefix="vm-run.") as work:
        return Machine(chosen, parts, work).run()


sys.exit(main())
