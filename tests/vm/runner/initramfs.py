# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT
"""The first files that the kernel sees: enough to reach this machine's own."""
import gzip
import hashlib
import os
import stat

from . import packages
from .common import cache_folder, read_text, write_text

MODULES = ["virtio_pci", "9pnet_virtio", "9p", "overlay", "virtio_console"]


class Archive:
    """As much of cpio's newc format as a kernel needs."""

    def __init__(self):
        self._data = bytearray()
        self._number = 0

    def add(self, name, mode, body=b""):
        self._number += 1
        raw = name.encode() + b"\0"
        # Inode, mode, owner, group, links, time, size, four device numbers, length of the name.
        fields = (self._number, mode, 0, 0, 1, 0, len(body), 0, 0, 0, 0, len(raw), 0)
        self._data += b"070701" + b"".join(b"%08X" % field for field in fields) + raw
        self._pad()
        self._data += body
        self._pad()

    def _pad(self):
        self._data += b"\0" * (-len(self._data) % 4)

    def finished(self):
        self.add("TRAILER!!!", 0)
        return bytes(self._data)


def _bytes_of(path):
    with open(path, "rb") as file:
        return file.read()


def _build(kernel, init):
    archive = Archive()
    for folder in ("bin", "dev", "modules"):
        archive.add(folder, stat.S_IFDIR | 0o755)
    archive.add("init", stat.S_IFREG | 0o755, init)
    busybox = os.path.join(packages.unpacked("busybox-static"), "usr/bin/busybox")
    archive.add("bin/busybox", stat.S_IFREG | 0o755, _bytes_of(busybox))
    names = []
    for file in kernel.in_loading_order(MODULES):
        body = _bytes_of(os.path.join(kernel.modules, file))
        if file.endswith(".gz"):
            body = gzip.decompress(body)
        names.append(os.path.basename(file))
        archive.add("modules/" + names[-1], stat.S_IFREG | 0o644, body)
    archive.add("modules/order", stat.S_IFREG | 0o644, "".join(n + "\n" for n in names).encode())
    return archive.finished()


def initramfs(kernel, init_file):
    """Returns the file for this kernel and this init, which is built where it is not yet there."""
    path = os.path.join(cache_folder(), "initramfs")
    init = _bytes_of(init_file)
    stamp = hashlib.sha256(init + " ".join([kernel.version, *MODULES]).encode()).hexdigest()
    stamp_file = path + ".stamp"
    if not os.path.exists(stamp_file) or read_text(stamp_file) != stamp:
        with open(path, "wb") as file:
            file.write(_build(kernel, init))
        write_text(stamp_file, stamp)
    return path
