#!/usr/bin/env python3
"""Times whole commands over the real USB stack of an emulated machine, against Debian's other MTP
clients, by turns in one boot: once with umtp-responder, once with QEMU's own device. Neither answers
a list of properties for a whole folder, so that a listing is a request a file. Prints medians of
five, start-up included.

    benchmarks/mtp_peers.py --cli build/release/bin/tessary-cli --cache build/machine
"""

import argparse
import os
import pathlib
import re
import shutil
import statistics
import subprocess
import sys
import tempfile

TESTS = pathlib.Path(__file__).parent.parent / "tests" / "qemu"
sys.path.insert(0, str(TESTS))
import gadget_test  # noqa: E402
import initramfs  # noqa: E402
import kernel  # noqa: E402
from machine import Machine  # noqa: E402
from mtp_test import Failure  # noqa: E402

RUNS = 5
MIB = 1024 * 1024
SIZE = 64  # MiB
PACKAGES = ["mtp-tools", "libmtp9", "libmtp-common", "jmtpfs", "libfuse2", "libmagic1", "libmagic-mgc"]
PEERS = ["mtp-files", "mtp-filetree", "mtp-getfile", "mtp-sendfile", "jmtpfs"]
COUNTS = (1000, 10000)
CONVERTERS = pathlib.Path("/usr/lib/x86_64-linux-gnu/gconv")  # between character sets


def fetch_peers(cache):
    """Unpacked, not installed."""
    tree = cache / "peers"
    if not tree.exists():
        with tempfile.TemporaryDirectory(dir=cache) as scratch:
            subprocess.run(["apt-get", "download", *PACKAGES], cwd=scratch, check=True)
            for package in pathlib.Path(scratch).glob("*.deb"):
                subprocess.run(["dpkg-deb", "-x", package, f"{scratch}/tree"], check=True)
            pathlib.Path(scratch, "tree").rename(tree)
    return tree


class Comparison(gadget_test.GadgetTest):
    """One device, by our command line and by the others."""

    def __init__(self, machine, storage, name, cli):
        super().__init__(machine)
        self.storage, self.NAME, self.CLI = storage, name, cli

    def shell(self, command, seconds=30):
        needed = " ".join(f"{name}={os.environ[name]}" for name in ("LD_LIBRARY_PATH", "MAGIC"))
        return super().shell(f"export {needed}; {command}", seconds)

    def median(self, command, before="true", after="true"):
        """The guest's seconds for a command, without what goes before and after each run."""
        times = []
        for _ in range(RUNS):
            took = self.shell(
                f"{before}; read start x </proc/uptime; {command} >/tmp/said 2>&1; status=$?; "
                f"read end x </proc/uptime; {after}; echo $start $end; "
                "[ $status = 0 ] || { cat /tmp/said; exit $status; }", 400)
            start, end = map(float, took.split())
            times.append(end - start)
        return statistics.median(times)

    def compare(self, what, ours, **peers):
        mine = self.median(**ours)
        theirs = {}
        failed = []
        for name, peer in peers.items():
            try:
                theirs[name] = self.median(**peer)
            except Failure:
                failed.append(f"{name} failed")
                self.begin_anew()
        listed = ", ".join([f"{name} {time:.2f}" for name, time in theirs.items()] + failed)
        share = f": {mine / min(theirs.values()):.2f} of the best" if theirs else ""
        print(f"  {what}: tessary-cli {mine:.2f} s, {listed}{share}", flush=True)

    def mounted(self, command, **around):
        around["before"] = "mkdir -p /tmp/mount; " + around.get("before", "true")
        work = f"jmtpfs /tmp/mount && {command}; status=$?; umount /tmp/mount; [ $status = 0 ]"
        return dict(command=f"({work})", **around)

    def list_folder(self, count):
        self.compare(
            f"{count} files listed",
            dict(command=f"{self.CLI} ls '{self.device}' /many --json"),
            jmtpfs=self.mounted(f"ls -l '/tmp/mount/{self.storage}/many'"),
            mtp_filetree=dict(command="mtp-filetree"),
        )

    def copy_film(self, clear):
        down = dict(before="rm -f /tmp/down")
        files = self.shell("mtp-files", 400)
        number = re.search(r"File ID: (\d+)\s+Filename: film\s", files)[1]
        self.compare(
            f"{SIZE} MiB down",
            dict(command=f"{self.CLI} get '{self.device}' /film /tmp/down", **down),
            jmtpfs=self.mounted(f"cp '/tmp/mount/{self.storage}/film' /tmp/down", **down),
            mtp_getfile=dict(command=f"mtp-getfile {number} /tmp/down", **down),
        )
        up = dict(before=clear, after=clear)
        self.compare(
            f"{SIZE} MiB up",
            dict(command=f"{self.CLI} put '{self.device}' /tmp/up /", **up),
            jmtpfs=self.mounted(f"cp /tmp/up '/tmp/mount/{self.storage}/up'", **up),
            mtp_sendfile=dict(command="mtp-sendfile /tmp/up up", **up),
        )


    def prepare(self):
        self.shell(f"head -c {SIZE * MIB} /dev/urandom >/tmp/up")


class OnResponder(Comparison):
    """The guest is phone and computer at once."""

    def begin_anew(self):
        self.restart_phone()

    def run(self):
        self.shell("sh /bin/setup; rm -r /tmp/phone/* /tmp/film; mkdir /tmp/phone/many", 60)
        self.prepare()
        self.shell("cp /tmp/up /tmp/phone/film")
        self.start_phone("still-image")
        first = 1
        for count in COUNTS:
            names = f"$(seq {first} {count})"
            self.shell(f"cd /tmp/phone/many; for n in {names}; do echo $n >IMG_$n.JPG; done", 120)
            self.restart_phone()
            self.device_is_listed()
            self.list_folder(count)
            first = count + 1
        self.shell("rm -r /tmp/phone/many", 60)
        self.restart_phone()
        self.copy_film(clear="rm -f /tmp/phone/up")


class OnEmulatedDevice(Comparison):
    """The phone's folder is one of this computer."""

    def __init__(self, *arguments, phone):
        super().__init__(*arguments)
        self.phone = phone

    def run(self):
        self.prepare()
        many = self.phone / "many"
        many.mkdir(parents=True)
        (self.phone / "film").write_bytes(os.urandom(SIZE * MIB))
        first = 1
        for count in COUNTS:
            for number in range(first, count + 1):
                (many / f"IMG_{number}.JPG").write_text(f"{number}\n")
            self.plug_in()
            self.list_folder(count)
            self.machine.unplug("phone")
            first = count + 1
        shutil.rmtree(many)
        self.plug_in()
        self.copy_film(clear=f"{self.CLI} rm '{self.device}' /up >/dev/null 2>&1; true")

    def begin_anew(self):
        self.machine.unplug("phone")
        self.plug_in()

    def plug_in(self):
        folder = str(self.phone)
        self.machine.plug("usb-mtp", "phone", rootdir=folder, readonly=False, port="1")
        self.machine.run("usleep 500000")
        self.device_is_listed()


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    for name in ("cli", "cache"):
        parser.add_argument(f"--{name}", type=pathlib.Path, required=True)
    arguments = parser.parse_args()
    peers = fetch_peers(arguments.cache)
    libraries = [peers / "usr/lib/x86_64-linux-gnu", peers / "lib/x86_64-linux-gnu"]
    magic = peers / "usr/lib/file/magic.mgc"
    os.environ["MAGIC"] = str(magic)
    os.environ["LD_LIBRARY_PATH"] = ":".join(map(str, libraries))
    programs = [arguments.cli, *(peers / "usr/bin" / name for name in PEERS)]

    def boot(scratch, modules, more, devices):
        image, files = kernel.kernel_files(arguments.cache, [*modules, *kernel.FUSE_MODULES])
        initramfs.build(scratch / "initramfs", files, programs + more, gadget_test.TEXTS,
                        gadget_test.PARAMETERS, [*CONVERTERS.glob("*"), magic])  # fmt: skip
        return Machine(image, scratch / "initramfs", scratch, devices, memory_mib=2048)

    with tempfile.TemporaryDirectory() as scratch:
        scratch = pathlib.Path(scratch)
        responder = [kernel.responder_file(arguments.cache)]
        with boot(scratch, kernel.GADGET_MODULES, responder, []) as machine:
            print("umtp-responder")
            begin(machine)
            OnResponder(machine, "Gadget storage", "Gadget", "tessary-cli").run()
        with boot(scratch, kernel.MODULES, [], ["qemu-xhci,id=xhci"]) as machine:
            print("QEMU's device")
            begin(machine)
            command = "tessary-cli --usb 46F4:0004"
            OnEmulatedDevice(
                machine, "MTP drive", "QEMU", command, phone=scratch / "phone"
            ).run()


def begin(machine):
    machine.await_text("@@booted\n", 120)
    machine.run("ln -s /proc/mounts /etc/mtab")


if __name__ == "__main__":
    main()
