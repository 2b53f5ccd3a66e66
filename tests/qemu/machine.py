"""A machine in QEMU: commands for its shell go over its serial port, hot plug over QMP."""

import ctypes
import json
import os
import select
import signal
import socket
import subprocess
import time


class MachineError(Exception):
    pass


class Result:
    def __init__(self, status, output, errors, seconds):
        self.status, self.output, self.errors, self.seconds = status, output, errors, seconds


def _die_with_parent():
    ctypes.CDLL(None).prctl(1, signal.SIGKILL)  # PR_SET_PDEATHSIG


class Machine:
    def __init__(self, kernel, initramfs, scratch, devices, memory_mib=1280):
        self.console = ""  # everything that it has printed
        self._scratch = scratch
        self._read = 0  # how much of that has been taken
        self._commands = 0
        qmp = scratch / "qmp"
        command = [
            "qemu-system-x86_64", "-accel", "tcg", "-m", str(memory_mib),
            "-nodefaults", "-display", "none", "-no-reboot",
            "-serial", "stdio", "-qmp", f"unix:{qmp},server=on,wait=off",
            "-kernel", str(kernel), "-initrd", str(initramfs), "-append",
            "console=ttyS0 panic=-1 quiet mitigations=off tsc=unstable random.trust_cpu=on",
        ]  # fmt: skip
        for device in devices:
            command += ["-device", device]
        self._errors = open(scratch / "qemu-errors", "w+")
        self._process = subprocess.Popen(
            command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=self._errors,
            bufsize=0, preexec_fn=_die_with_parent,
        )  # fmt: skip
        self._qmp = None

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._process.kill()
        self._process.wait()
        self._errors.close()
        if self._qmp:
            self._qmp.close()

    def emulator_errors(self):
        self._errors.seek(0)
        return self._errors.read()

    def await_text(self, text, seconds):
        """Takes everything up to and including `text`; returns what stood before it."""
        deadline = time.monotonic() + seconds
        while (at := self.console.find(text, self._read)) < 0:
            left = deadline - time.monotonic()
            if left <= 0:
                raise MachineError(f"no {text!r} within {seconds} s")
            if select.select([self._process.stdout], [], [], left)[0]:
                chunk = os.read(self._process.stdout.fileno(), 65536)
                if not chunk:
                    raise MachineError(f"the emulator ended while {text!r} was awaited")
                self.console += chunk.decode(errors="replace")
        before = self.console[self._read : at]
        self._read = at + len(text)
        return before

    def start(self, command):
        """Starts a command of the shell; finish() must follow."""
        self._commands += 1
        mark = f"@@{self._commands}"
        line = (
            f"({command}) </dev/null >/tmp/.out 2>/tmp/.err; echo {mark} $? @@; "
            f"cat /tmp/.out; echo {mark}out; cat /tmp/.err; echo {mark}err\n"
        )
        self._started = time.monotonic()
        self._process.stdin.write(line.encode())

    def finish(self, seconds):
        mark = f"@@{self._commands}"
        self.await_text(mark + " ", seconds)
        took = time.monotonic() - self._started
        status = int(self.await_text(" @@\n", 10))
        output = self.await_text(mark + "out\n", 60)
        errors = self.await_text(mark + "err\n", 60)
        return Result(status, output, errors, took)

    def run(self, command, seconds=30):
        self.start(command)
        return self.finish(seconds)

    def _reply(self):
        while True:
            reply = json.loads(self._qmp.readline() or '{"error": "the emulator is gone"}')
            if "error" in reply:
                raise MachineError(f"QMP: {reply['error']}")
            if "event" not in reply:
                return reply

    def qmp(self, execute, **arguments):
        if not self._qmp:
            connection = socket.socket(socket.AF_UNIX)
            connection.settimeout(20)
            connection.connect(str(self._scratch / "qmp"))
            self._qmp = connection.makefile("rw")
            self._reply()
            self.qmp("qmp_capabilities")
        self._qmp.write(json.dumps({"execute": execute, "arguments": arguments}) + "\n")
        self._qmp.flush()
        return self._reply()

    def plug(self, driver, name, **properties):
        self.qmp("device_add", driver=driver, id=name, **properties)

    def unplug(self, name):
        self.qmp("device_del", id=name)
