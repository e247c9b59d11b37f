# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT
"""The emulated machine: what it is made of, and its life from power on to power off."""
import os
import shlex
import shutil
import signal
import socket
import subprocess
import threading
import time

from .common import read_text, say, write_text
from .hardware import Hardware

STATUS_OUT_OF_TIME, STATUS_BROKEN = 124, 125

_HERE = os.path.dirname(os.path.abspath(__file__))
GUEST_FOLDER = os.path.join(_HERE, "guest")

_MODULES = ["evdev", "uinput", "uhid"]
_USB_MODULES = ["xhci_pci", "usbhid", "hid_generic"]
_SCREEN_MODULES = ["virtio_gpu"]


def _listen(path):
    listener = socket.socket(socket.AF_UNIX)
    listener.bind(path)
    listener.listen(1)
    # If the emulator ends at once, nobody connects.
    listener.settimeout(30)
    return listener


class Machine:
    """One boot. `parts` has kernel, initramfs and layer; `work` is a folder for this run alone."""

    def __init__(self, options, parts, work):
        self._options = options
        self._parts = parts
        self._control = os.path.join(work, "control")
        self._sockets = {name: os.path.join(work, name) for name in ("output", "hands", "monitor")}
        self._out = os.path.abspath(options.out or os.path.join(work, "out"))
        os.makedirs(self._out, exist_ok=True)
        self._console = os.path.join(self._out, "console.log")
        self._is_out_of_time = False

    def run(self):
        """Returns the status of the program that ran in the machine."""
        self._write_control_folder()
        output, hands = _listen(self._sockets["output"]), _listen(self._sockets["hands"])
        started = time.monotonic()
        with subprocess.Popen(self._emulator(), stdin=subprocess.DEVNULL, stderr=subprocess.PIPE,
                              text=True, start_new_session=True) as process:
            timer = self._stop_in_time(process)
            try:
                reader = threading.Thread(target=self._pass_on, args=(output.accept()[0],))
                reader.start()
                hardware = Hardware(self._sockets["monitor"], self._out)
                threading.Thread(target=hardware.serve, args=(hands.accept()[0],),
                                 daemon=True).start()
                process.wait()
                reader.join(5)
            except OSError as error:
                process.kill()
                say(f"the emulator did not start: {error}")
            finally:
                timer.cancel()
            complaints = process.stderr.read().strip()
        if self._options.verbose:
            say(f"{time.monotonic() - started:.0f} s in all")
        return self._status(complaints)

    def _write_control_folder(self):
        """What the machine is to know goes through a small folder, which is shared with it."""
        options = self._options
        shutil.copytree(GUEST_FOLDER, self._control)
        command = list(options.command)
        if os.path.exists(command[0]):
            command[0] = os.path.abspath(command[0])
        write_text(os.path.join(self._control, "command"), shlex.join(command) + "\n")
        variables = dict(pair.split("=", 1) for pair in options.env)
        write_text(os.path.join(self._control, "environment"), "".join(
            f"{name}={shlex.quote(value)}\n" for name, value in variables.items()))
        modules = (_MODULES + (_USB_MODULES if options.usb else [])
                   + (_SCREEN_MODULES if options.screen else []))
        settings = {"withUdev": options.udev, "withBus": options.bus,
                    "withSystemd": options.systemd}
        write_text(os.path.join(self._control, "settings"), "".join(
            f"{name}={int(value)}\n" for name, value in settings.items())
            + f"modules={shlex.quote(' '.join(modules))}\n"
            + f"folder={shlex.quote(os.getcwd())}\n")

    def _emulator(self):
        options, parts = self._options, self._parts
        # The clocks that a kernel falls back on cost microseconds a look.
        kernel_line = "console=ttyS0 quiet panic=-1 mitigations=off tsc=reliable random.trust_cpu=on"
        processors = 1 if options.count_instructions else options.processors
        command = [
            "qemu-system-x86_64", "-machine", "q35", "-cpu", "max", "-m", options.memory,
            "-smp", str(processors),
            "-accel", "tcg,thread=" + ("single" if processors == 1 else "multi"),
            "-nodefaults", "-display", "none", "-nic", "none", "-no-reboot",
            "-kernel", parts.kernel.image, "-initrd", parts.initramfs, "-append", kernel_line,
            "-serial", f"file:{self._console}",
            "-qmp", f"unix:{self._sockets['monitor']},server=on,wait=off",
            "-device", "virtio-serial-pci"]
        for name in ("output", "hands"):
            command += ["-chardev", f"socket,id={name},path={self._sockets[name]}",
                        "-device", f"virtserialport,chardev={name},name=vm.{name}"]
        for tag, folder, access in (("host", "/", ",readonly=on"),
                                    ("kernel", parts.kernel.tree, ",readonly=on"),
                                    ("layer", parts.layer, ",readonly=on"),
                                    ("control", self._control, ""), ("out", self._out, "")):
            command += ["-virtfs", f"local,path={folder},mount_tag={tag},security_model=none,"
                                   f"multidevs=remap{access}"]
        if options.count_instructions:
            command += ["-icount", "shift=0,sleep=off"]
        if options.usb:
            command += ["-device", "qemu-xhci"]
        if options.screen:
            command += ["-device", "virtio-gpu-pci,xres=800,yres=600"]
        return command

    def _stop_in_time(self, process):
        def stop(*_):
            self._is_out_of_time = True
            process.kill()

        signal.signal(signal.SIGTERM, stop)
        signal.signal(signal.SIGINT, stop)
        timer = threading.Timer(self._options.time_limit, stop)
        timer.daemon = True
        timer.start()
        return timer

    @staticmethod
    def _pass_on(connection):
        while data := connection.recv(65536):
            os.write(1, data)

    def _status(self, complaints):
        status = os.path.join(self._control, "status")
        if os.path.exists(status):
            return int(read_text(status))
        if self._is_out_of_time:
            say(f"stopped: {self._options.time_limit:g} s were over, or somebody asked for it")
            return STATUS_OUT_OF_TIME
        console = read_text(self._console)[-1500:] if os.path.exists(self._console) else ""
        say(f"the machine ended without a status; its console said:\n{console}\n{complaints}")
        return STATUS_BROKEN
