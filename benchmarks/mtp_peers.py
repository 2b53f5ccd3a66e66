#!/usr/bin/env python3
"""Times whole commands over the real USB stack of an emulated machine, against Debian's other MTP
clients, by turns in one boot a device: the virtual phone, umtp-responder, and QEMU's own device. Only
the first answers a list of properties for a whole folder; with the others a listing is a request a
file. Prints medians of five, start-up included.

    benchmarks/mtp_peers.py --cli build/release/bin/tessary-cli --cache build/machine
        --phone build/release/tests/qemu/GadgetPhone [--devices virtual responder qemu]
        [--counts 1000 10000]
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

    def __init__(self, machine, counts, storage, name, cli):
        super().__init__(machine)
        self.counts, self.storage, self.NAME, self.CLI = counts, storage, name, cli

    def seconds(self, command, before="true", after="true"):
        """The guest's seconds for a command, without what goes before and after it."""
        took = self.shell(
            f"{before}; read start x </proc/uptime; {command} >/tmp/said 2>&1; status=$?; "
            f"read end x </proc/uptime; {after}; echo $start $end; "
            "[ $status = 0 ] || { cat /tmp/said; exit $status; }", 400)
        start, end = map(float, took.split())
        return end - start

    def compare(self, what, ours, **peers):
        """By turns, so that what else the machine does meets all alike."""
        times = {"tessary-cli": []} | {name: [] for name in peers}
        commands = {"tessary-cli": ours} | peers
        for _ in range(RUNS):
            for name in list(times):
                try:
                    times[name].append(self.seconds(**commands[name]))
                except Failure as failure:
                    print(f"  {what}: {name} failed: {str(failure)[-300:]}", flush=True)
                    del times[name]
                    self.begin_anew()
        medians = {name: statistics.median(taken) for name, taken in times.items()}
        mine = medians.pop("tessary-cli")
        listed = ", ".join(f"{name} {time:.2f}" for name, time in medians.items())
        share = f": {mine / min(medians.values()):.2f} of the best" if medians else ""
        print(f"  {what}: tessary-cli {mine:.2f} s, {listed}{share}", flush=True)

    def theirs(self, command):
        """With the libraries that came with them."""
        needed = " ".join(f"{name}={os.environ[name]}" for name in ("LD_LIBRARY_PATH", "MAGIC"))
        return f"{needed} {command}"

    def mounted(self, command, **around):
        """On its mount. What was written is on the device once the mount's program has ended."""
        around["before"] = "mkdir -p /tmp/mount; " + around.get("before", "true")
        ending = "umount /tmp/mount; while pidof jmtpfs; do usleep 1000; done"
        work = f"{self.theirs('jmtpfs /tmp/mount')} && {command}; status=$?; {ending}; [ $status = 0 ]"
        return dict(command=f"({work})", **around)

    def list_folder(self, count):
        self.compare(
            f"{count} files listed",
            dict(command=f"{self.CLI} ls '{self.device}' /many --json"),
            jmtpfs=self.mounted(f"ls -l '/tmp/mount/{self.storage}/many'"),
            mtp_filetree=dict(command=self.theirs("mtp-filetree")),
        )

    def copy_film(self, clear):
        down = dict(before="rm -f /tmp/down")
        files = self.shell(self.theirs("mtp-files"), 400)
        number = re.search(r"File ID: (\d+)\s+Filename: film\s", files)[1]
        self.compare(
            f"{SIZE} MiB down",
            dict(command=f"{self.CLI} get '{self.device}' /film /tmp/down", **down),
            jmtpfs=self.mounted(f"cp '/tmp/mount/{self.storage}/film' /tmp/down", **down),
            mtp_getfile=dict(command=self.theirs(f"mtp-getfile {number} /tmp/down"), **down),
        )
        up = dict(before=clear, after=clear)
        self.compare(
            f"{SIZE} MiB up",
            dict(command=f"{self.CLI} put '{self.device}' /tmp/up /", **up),
            jmtpfs=self.mounted(f"cp /tmp/up '/tmp/mount/{self.storage}/up'", **up),
            mtp_sendfile=dict(command=self.theirs("mtp-sendfile /tmp/up up"), **up),
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
        for count in self.counts:
            names = f"$(seq {first} {count})"
            self.shell(f"cd /tmp/phone/many; for n in {names}; do echo $n >IMG_$n.JPG; done", 120)
            self.restart_phone()
            self.device_is_listed()
            self.list_folder(count)
            first = count + 1
        self.shell("rm -r /tmp/phone/many", 60)
        self.restart_phone()
        self.copy_film(clear="rm -f /tmp/phone/up")


class OnVirtualPhone(OnResponder):
    RESPONDER = f"GadgetPhone {gadget_test.PHONE} /dev/ffs"


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
        for count in self.counts:
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
    for name in ("cli", "cache", "phone"):
        parser.add_argument(f"--{name}", type=pathlib.Path, required=True)
    known = ["virtual", "responder", "qemu"]
    parser.add_argument("--devices", nargs="+", choices=known, default=known)
    parser.add_argument("--counts", nargs="+", type=int, default=[1000, 10000])
    arguments = parser.parse_args()
    peers = fetch_peers(arguments.cache.resolve())
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
        gadgets = [
            ("virtual", OnVirtualPhone, arguments.phone, "Virtual storage"),
            ("responder", OnResponder, kernel.responder_file(arguments.cache), "Gadget storage"),
        ]
        for device, comparison, program, storage in gadgets:
            if device not in arguments.devices:
                continue
            with boot(scratch, kernel.GADGET_MODULES, [program], []) as machine:
                begin(machine, device)
                comparison(machine, arguments.counts, storage, "Gadget", "tessary-cli").run()
        if "qemu" not in arguments.devices:
            return
        with boot(scratch, kernel.MODULES, [], ["qemu-xhci,id=xhci"]) as machine:
            begin(machine, "qemu")
            command = "tessary-cli --usb 46F4:0004"
            OnEmulatedDevice(
                machine, arguments.counts, "phone", "QEMU", command, phone=scratch / "phone"
            ).run()


def begin(machine, device):
    print(device, flush=True)
    machine.await_text("@@booted\n", 120)
    machine.run("ln -s /proc/mounts /etc/mtab")


if __name__ == "__main__":
    main()
