#!/usr/bin/env python3
"""Tests the real USB path in an emulated machine: Debian's kernel, an xHCI controller and QEMU's
MTP responder, a foreign implementation of the phone's side. Needs neither root, KVM nor USB."""

import argparse
import contextlib
import hashlib
import json
import os
import pathlib
import signal
import sys
import tempfile
import time

import initramfs
import kernel
from machine import Machine, MachineError

MIB = 1024 * 1024
TIME_LIMIT = 380  # seconds: before ctest would end it without a word
# Around one packet, one short read and one long read, with the container's header of 12 bytes; and
# many reads. This responder takes no upload that ends with a few bytes behind a full buffer of its
# own (of 512 KiB): it halts the pipe, or ends itself.
EDGE_SIZES = (0, 1, 499, 500, 501, 1012, 4084, 4085, 262132, 262144, 524276, 1048600, 64 * MIB)


class Failure(Exception):
    pass


def check(condition, text, result=None):
    if condition:
        return
    if result:
        text += f"\nexit status {result.status} after {result.seconds:.1f} s"
        text += f"\n--- standard output\n{result.output[-3000:]}"
        text += f"\n--- standard error\n{result.errors[-3000:]}"
    raise Failure(text)


def sha256(path):
    with open(path, "rb") as file:
        return hashlib.file_digest(file, "sha256").hexdigest()


def fill_phone(folder):
    many = folder / "many"
    many.mkdir(parents=True)
    for number in range(1000):
        (many / f"file {number:04}.txt").write_text(f"{number}\n")
    full = folder / "full"
    (full / "inner").mkdir(parents=True)
    for name in ("a.txt", "b.txt", "inner/c.txt"):
        (full / name).write_text(name)
    (folder / "single.txt").write_text("to be removed")
    with open(folder / "huge.bin", "wb") as file:
        file.truncate(5 * 1024 * MIB)
    with open(folder / "large.bin", "wb") as file:
        file.truncate(512 * MIB)  # fits into the machine's memory
    edges = folder / "edges"
    edges.mkdir()
    for size in EDGE_SIZES:
        (edges / f"{size} bytes.bin").write_bytes(os.urandom(size))


class Test:
    CLI = "tessary-cli --usb 46F4:0004"
    NAME = "QEMU"

    def __init__(self, machine, phone=None):
        self.machine = machine
        self.phone = phone  # the responder's folder on this machine
        self.device = None  # its id for tessary-cli

    # The USB bus, by the probe

    def probe(self, tests):
        return "USBBusProbe --gtest_brief=1 --gtest_filter=" + tests

    def expect_probe(self, result):
        check(result.status == 0, "the probe failed", result)

    def pipes_work(self):
        apart = "*-*.unplugging*:*.holds*:*.namesTheProgram*"  # they need something from outside
        self.expect_probe(self.machine.run(self.probe(apart), 60))

    def holder_is_named(self):
        both = f"{self.probe('*.holdsTheDevice')} >/dev/null & {self.probe('*.namesTheProgram*')}"
        self.expect_probe(self.machine.run(f"{both}; status=$?; wait; exit $status", 60))

    def hot_plug_is_noticed(self):
        # Past the shell's redirection, so that the marks come at once.
        self.machine.start(self.probe("*.unplugging*") + " >/dev/console")
        self.machine.await_text("@@unplug", 30)
        time.sleep(0.2)
        self.unplug()
        self.machine.await_text("@@plug", 30)
        self.plug()
        self.expect_probe(self.machine.finish(60))

    def plug(self):
        self.machine.plug("usb-mtp", "phone", rootdir=str(self.phone), readonly=False, port="1")

    def unplug(self):
        self.machine.unplug("phone")

    def is_there(self):
        return "grep -q 46f4 /sys/bus/usb/devices/*/idVendor"

    def await_enumeration(self):
        loop = f"for i in $(seq 100); do {self.is_there()} && exit 0; usleep 50000; done; exit 1"
        result = self.machine.run(loop, 20)
        check(result.status == 0, "the kernel found no device", result)

    # The services, by tessary-cli

    def cli(self, command, seconds=60):
        return self.machine.run(f"{self.CLI} {command}", seconds)

    def expect(self, command, seconds=60):
        result = self.cli(command, seconds)
        check(result.status == 0, f"failed: {command}", result)
        return result

    def names(self, folder):
        listing = json.loads(self.expect(f"ls '{self.device}' {folder} --json").output)
        return sorted(item["name"] for item in listing)

    def file_system_works(self, environment=""):
        result = self.machine.run(f"{environment} MTPFilesProbe --gtest_brief=1", 120)
        self.expect_probe(result)
        return "; ".join(line for line in result.errors.strip().splitlines() if line)

    def device_is_listed(self):
        result = self.expect("devices --json")
        found = [one for one in json.loads(result.output) if self.NAME in one["deviceName"]]
        check(len(found) == 1, "the device is not listed", result)
        self.device = found[0]["udid"]

    def thousand_files_are_listed(self):
        result = self.expect(f"ls '{self.device}' /many --json", 60)
        listed = sorted(item["name"] for item in json.loads(result.output))
        check(listed == sorted(os.listdir(self.phone / "many")), "the listing differs", result)
        return f"{result.seconds:.1f} s, start-up included"

    def sizes_beyond_32_bits_are_told(self):
        item = json.loads(self.expect(f"info '{self.device}' /huge.bin --json").output)
        check(item["size"] == 5 * 1024 * MIB, f"5 GiB shown as {item['size']} bytes")

    def edge_sizes_are_copied_whole(self):
        self.expect(f"get '{self.device}' /edges /tmp/down", 90)
        sums = self.machine.run("cd /tmp/down; sha256sum *", 60)
        edges = sorted((self.phone / "edges").iterdir())
        expected = "".join(f"{sha256(file)}  {file.name}\n" for file in edges)
        check(sums.output == expected, "copies differ", sums)
        # This responder does not wait for the empty packet behind data of whole packets: it halts
        # the pipe, and has the data all the same.
        self.machine.run("mv /tmp/down /tmp/back")
        self.expect(f"put '{self.device}' /tmp/back /", 90)
        self.machine.run("rm -r /tmp/back")
        back = sorted((self.phone / "back").iterdir())
        for file in back:
            check(sha256(file) == sha256(self.phone / "edges" / file.name), f"{file.name} differs")
        check(len(back) == len(edges), f"{len(back)} files arrived instead of {len(edges)}")

    def files_and_folders_are_removed(self):
        self.expect(f"rm '{self.device}' /single.txt")
        check(not (self.phone / "single.txt").exists(), "the file is still there")
        self.expect(f"rm '{self.device}' /full")
        check(not (self.phone / "full").exists(), "the folder is still there")
        self.expect(f"mkdir '{self.device}' /new")
        check((self.phone / "new").is_dir(), "the folder was not made")

    def moved(self):
        """A command that tells how many MiB the copy under way has read and written."""
        add_up = "awk '/char/ { n += $2 } END { print int(n / 1048576) }'"
        return f"cat /proc/$(pidof tessary-cli)/io | {add_up}"

    def start_long_copy(self, command, then="true", mebibytes=32):
        """Starts a copy that would take long, and waits until it is well on its way."""
        wait = f"until [ $({self.moved()}) -gt {mebibytes} ]; do usleep 20000; done 2>/dev/null"
        watch = f"({wait}; echo @@running >/dev/console; {then}) &"
        self.machine.start(f"{watch} exec {self.CLI} {command}")
        self.machine.await_text("@@running", 120)

    def start_download(self, then="true"):
        self.machine.run("mkdir -p /tmp/part")
        self.start_long_copy(f"get '{self.device}' /large.bin /tmp/part/large.bin", then)

    def start_upload(self, then="true"):
        self.machine.run("truncate -s 2G /tmp/long.bin")
        self.start_long_copy(f"put '{self.device}' /tmp/long.bin /", then)

    def expect_part_to_go_on_with(self):
        """What has arrived waits under a name of its own."""
        left = self.machine.run("ls -A /tmp/part; rm -r /tmp/part")
        names = left.output.split()
        is_part = len(names) == 1 and names[0].startswith(".tessary-part-of-")
        check(is_part, "something else than a part is left", left)

    def expect_broken_off(self, result, status):
        check(result.status == status, f"exit status {status} was expected", result)
        check(result.errors.strip() != "" or status == 130, "no word on standard error", result)

    def interrupted_download_ends_cleanly(self):
        self.start_download(then="killall -INT tessary-cli")
        result = self.machine.finish(20)
        self.expect_broken_off(result, 130)
        self.expect_part_to_go_on_with()
        check("huge.bin" in self.names("/"), "the listing afterwards is wrong")
        return f"{result.seconds:.1f} s"

    def interrupted_upload_ends_cleanly(self):
        self.start_upload(then="killall -INT tessary-cli")
        result = self.machine.finish(20)
        self.expect_broken_off(result, 130)
        check("long.bin" not in self.names("/"), "a partial file is left on the phone", result)
        return f"{result.seconds:.1f} s"

    def unplugged_upload_fails_at_once(self):
        self.start_upload()
        return self.expect_failure_at_once()

    def unplugged_download_fails_at_once(self):
        self.start_download()
        words = self.expect_failure_at_once()
        self.expect_part_to_go_on_with()
        return words

    def expect_failure_at_once(self):
        start = time.monotonic()
        self.unplug()
        result = self.machine.finish(30)
        took = time.monotonic() - start
        self.expect_broken_off(result, 1)
        check(took < 10, f"it took {took:.1f} s", result)
        return f"{took:.1f} s: {result.errors.strip().splitlines()[-1]}"

    def plugged_in_again_it_works(self):
        self.plug()
        self.await_enumeration()
        self.device_is_listed()
        check("huge.bin" in self.names("/"), "the listing is wrong")


def run(arguments, scratch):
    phone = scratch / "phone"
    fill_phone(phone)
    image, modules = kernel.kernel_files(arguments.cache)
    programs = [arguments.probe, arguments.files, arguments.cli]
    initramfs.build(scratch / "initramfs", modules, programs)
    devices = ["qemu-xhci,id=xhci", "usb-hub,port=2"]
    with Machine(image, scratch / "initramfs", scratch, devices) as machine:
        test = Test(machine, phone)
        steps = [
            test.pipes_work,
            test.holder_is_named,
            test.hot_plug_is_noticed,
            test.file_system_works,
            test.device_is_listed,
            test.thousand_files_are_listed,
            test.sizes_beyond_32_bits_are_told,
            test.edge_sizes_are_copied_whole,
            test.files_and_folders_are_removed,
            test.interrupted_download_ends_cleanly,
            test.interrupted_upload_ends_cleanly,
            test.unplugged_download_fails_at_once,
            test.plugged_in_again_it_works,
            test.unplugged_upload_fails_at_once,
            test.plugged_in_again_it_works,
        ]

        def begin():
            test.plug()
            test.await_enumeration()

        return perform(machine, begin, steps)


def perform(machine, begin, steps):
    """Runs the steps once the machine has booted; returns the exit status."""
    current = "boot"
    try:
        start = time.monotonic()
        machine.await_text("@@booted\n", 120)
        begin()
        report("boot", start, None)
        for step in steps:
            current = step.__name__
            start = time.monotonic()
            report(current, start, step())
    except (Failure, MachineError, OSError, ValueError, KeyError) as error:
        signal.alarm(0)
        print(f"FAIL {current}: {error}")
        with contextlib.suppress(MachineError, OSError):
            print("--- kernel log\n" + machine.run("dmesg | tail -n 40", 10).output)
        print(f"--- console\n{machine.console[-4000:]}")
        print(f"--- emulator\n{machine.emulator_errors()}")
        return 1
    return 0


def report(step, start, remark):
    text = f"PASS {step} ({time.monotonic() - start:.1f} s)"
    print(text + (f": {remark}" if remark else ""), flush=True)


def out_of_time(*_):
    raise MachineError(f"not done after {TIME_LIMIT} s")


def main(run, description, programs):
    parser = argparse.ArgumentParser(description=description)
    for program in programs:
        parser.add_argument(f"--{program}", type=pathlib.Path, required=True)
    parser.add_argument("--cache", type=pathlib.Path, required=True, help="keeps what is fetched")
    arguments = parser.parse_args()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    signal.signal(signal.SIGALRM, out_of_time)
    signal.alarm(TIME_LIMIT)
    try:
        with tempfile.TemporaryDirectory(prefix="tessary-qemu-") as scratch:
            return run(arguments, pathlib.Path(scratch))
    except (kernel.KernelError, MachineError, OSError) as error:
        print(f"FAIL {error}")
        return 1


if __name__ == "__main__":
    sys.exit(main(run, __doc__, ["probe", "files", "cli"]))
