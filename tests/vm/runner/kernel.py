# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT
"""The kernel of the emulated machine: Debian's own, with its modules."""
import os
import re
import shutil

from . import packages
from .common import Unavailable, cache_folder, output_of, read_text, say


class Kernel:
    """An unpacked kernel package. VM_KERNEL_DEB may name one that is at hand."""

    def __init__(self):
        given = os.environ.get("VM_KERNEL_DEB")
        self.tree = os.path.join(cache_folder(), "kernel")
        if given:
            self.tree += "-" + os.path.basename(given).removesuffix(".deb")
        if not os.path.isdir(self.tree):
            self._unpack(given)
        self.version = os.listdir(os.path.join(self.tree, "usr/lib/modules"))[0]

    @property
    def image(self):
        return os.path.join(self.tree, "boot", "vmlinuz-" + self.version)

    @property
    def modules(self):
        return os.path.join(self.tree, "usr/lib/modules", self.version)

    def _unpack(self, given):
        part = self.tree + ".new"
        if given:
            packages.unpack([given], part)
        else:
            # Its package is named after the version; another one depends on the latest.
            text = output_of(["apt-cache", "depends", "linux-image-amd64"])
            found = re.search(r"Depends: (linux-image-[\w.+-]+)", text)
            if not found:
                raise Unavailable("no kernel package is known here; VM_KERNEL_DEB may name one")
            shutil.rmtree(part, ignore_errors=True)
            os.rename(packages.unpacked(found.group(1)), part)
        self._index(part)
        os.rename(part, self.tree)

    @staticmethod
    def _index(tree):
        """Makes the files by which modprobe finds modules, as an installation would."""
        say("looking through the kernel's modules")
        version = os.listdir(os.path.join(tree, "usr/lib/modules"))[0]
        tools = packages.unpacked("kmod")
        depmod = os.path.join(tools, "depmod")
        if not os.path.lexists(depmod):
            os.symlink("usr/bin/kmod", depmod)
        # It looks in /lib alone; in the machine that is a link which the tree must not hide.
        os.symlink("usr/lib", os.path.join(tree, "lib"))
        output_of([depmod, "-b", tree, version])
        os.unlink(os.path.join(tree, "lib"))

    def in_loading_order(self, names):
        """Returns the files of these modules and of all they need, each after what it needs."""
        needs, file_of = {}, {}
        for line in read_text(os.path.join(self.modules, "modules.dep")).splitlines():
            file, _, needed = line.partition(":")
            needs[file] = needed.split()
            file_of[os.path.basename(file).split(".ko")[0].replace("-", "_")] = file
        order = []

        def add(file):
            if file not in order:
                for needed in reversed(needs[file]):
                    add(needed)
                order.append(file)

        for name in names:
            # What has no file is built into the kernel.
            if name in file_of:
                add(file_of[name])
        return order
