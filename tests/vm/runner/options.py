# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT
"""The command line of vm-run."""
import argparse


def parse():
    parser = argparse.ArgumentParser(
        prog="vm-run", usage="vm-run [options] [--] PROGRAM [ARGUMENT...]",
        description="Runs a program in an emulated machine that sees this machine's files; what "
                    "it writes is gone afterwards, but for $VM_OUT, the folder of --out. Exits "
                    "with the program's status; 124 if time ran out, 125 if the machine broke, "
                    "77 if none can be had here.")
    add = parser.add_argument
    add("--out", metavar="FOLDER", help="takes results and the console's log")
    add("--time-limit", type=float, default=600, metavar="SECONDS")
    add("--processors", type=int, default=2, metavar="N")
    add("--memory", default="2G")
    add("--package", action="append", default=[],
        help="one that only the machine shall have; may be repeated")
    add("--udev", action="store_true", help="with udev")
    add("--bus", action="store_true", help="with a system bus")
    add("--systemd", action="store_true", help="systemd is the first process and starts all else")
    add("--usb", action="store_true", help="with a socket for keyboards that are plugged in")
    add("--screen", action="store_true", help="with a graphics card")
    add("--count-instructions", action="store_true",
        help="one processor, whose clock counts instructions: figures can be repeated")
    add("--env", action="append", default=[], metavar="NAME=VALUE")
    add("--verbose", action="store_true", help="say how long it took")
    add("--prepare", action="store_true", help="only fetch and build what is needed")
    add("command", nargs=argparse.REMAINDER)
    options = parser.parse_args()
    if options.command and options.command[0] == "--":
        del options.command[0]
    if not options.command and not options.prepare:
        parser.error("which program?")
    return options
