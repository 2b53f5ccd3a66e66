#!/usr/bin/env python3
"""Tests against a second foreign phone, a stricter one: umtp-responder behind Linux's own gadget
framework. The emulated machine is phone and computer at once, joined by dummy_hcd."""

import functools
import sys

import initramfs
import kernel
from machine import Machine
from mtp_test import MIB, Failure, Test, check, main, perform

EDGE_SIZES = (0, 1, 499, 500, 501, 512, 1012, 4084, 4085, 262132, 262144, 524276, 1048565)
PHONE = "/tmp/phone"
# MiB: what goes up in pieces at the least, and what comes down in them
FILM = 72
CLIP = 36
CABLE = "/tmp/config/usb_gadget/phone/UDC"
UNPLUG = f"echo >{CABLE}"

# A high-speed device: at SuperSpeed the emulated controller never connects.
PARAMETERS = {"dummy_hcd.ko": "is_super_speed=0"}

SETUP = """
mkdir -p /tmp/config /dev/ffs
mount -t configfs none /tmp/config
gadget=/tmp/config/usb_gadget/phone
mkdir $gadget && cd $gadget
echo 0x18d1 >idVendor; echo 0x4ee1 >idProduct
mkdir strings/0x409 configs/c.1 configs/c.1/strings/0x409 functions/ffs.mtp
echo GADGET1 >strings/0x409/serialnumber
echo Linux >strings/0x409/manufacturer
echo Gadget >strings/0x409/product
ln -s functions/ffs.mtp configs/c.1
mkdir -p /tmp/phone/many && cd /tmp/phone/many
for n in $(seq 300); do echo $n >"file $n.txt"; done
truncate -s 5G /tmp/phone/huge.bin
head -c 75497472 /dev/urandom >/tmp/film
"""

CONFIGURATION = """
loop_on_disconnect 1
storage "/tmp/phone" "Gadget storage" "rw"
manufacturer "Linux"
product "Gadget"
serial "GADGET1"
interface "MTP"
usb_vendor_id 0x18D1
usb_product_id 0x4EE1
{class}usb_dev_version 0x3008
usb_functionfs_mode 0x1
usb_dev_path "/dev/ffs/ep0"
usb_epin_path "/dev/ffs/ep1"
usb_epout_path "/dev/ffs/ep2"
usb_epint_path "/dev/ffs/ep3"
usb_max_packet_size 0x200
"""
KINDS = {"still-image": (6, 1, 1), "vendor-specific": (0xFF, 0xFF, 0)}
TEXTS = {"bin/setup": SETUP} | {
    f"etc/umtprd/{kind}.conf": CONFIGURATION.replace("{class}", "".join(
        f"usb_{part} {value:#x}\n" for part, value in zip(("class", "subclass", "protocol"), values)))
    for kind, values in KINDS.items()
}


class GadgetTest(Test):
    CLI = "tessary-cli"
    NAME = "Gadget"
    RESPONDER = "umtprd"

    def shell(self, command, seconds=30):
        result = self.machine.run(command, seconds)
        check(result.status == 0, f"failed: {command}", result)
        return result.output

    def start_phone(self, kind):
        self.shell(f"cp /etc/umtprd/{kind}.conf /etc/umtprd/umtprd.conf")
        self.shell("mount -t functionfs mtp /dev/ffs")
        self.shell(f"{self.RESPONDER} >/tmp/responder.log 2>&1 &")
        self.plug()
        self.await_enumeration()

    def file_system_works(self):
        return super().file_system_works(f"PHONE_FOLDER={PHONE}")

    def stop_phone(self):
        name = self.RESPONDER.split()[0]
        self.shell(f"{UNPLUG}; killall {name}; usleep 300000; umount /dev/ffs")

    def plug(self):
        """Once the responder has told what it is."""
        attempt = f"echo dummy_udc.0 >{CABLE} && exit 0"
        self.shell(f"for n in $(seq 99); do {attempt}; usleep 100000; done 2>/dev/null; exit 1")

    def is_there(self):
        return "grep -q 18d1 /sys/bus/usb/devices/*/idVendor"

    def edge_sizes_go_there_and_back(self):
        sizes = " ".join(map(str, EDGE_SIZES))
        write = "head -c $n /dev/urandom >/tmp/edges/$n"
        self.shell(f"mkdir /tmp/edges; for n in {sizes}; do {write}; done")
        self.expect(f"put {self.device} /tmp/edges /", 90)
        self.expect(f"get {self.device} /edges /tmp/back", 90)
        self.shell("diff -r /tmp/edges /tmp/back && diff -r /tmp/edges /tmp/phone/edges")
        self.expect(f"mv {self.device} /edges/500 renamed")
        self.expect(f"rm {self.device} /edges")
        check("edges" not in self.names("/"), "the folder is still there")

    def restart_phone(self):
        """A responder that has lost its cable may begin anew at any time."""
        self.stop_phone()
        self.start_phone("still-image")

    def while_it_lives(self, step):
        """This responder now and then reads through a null pointer while a session ends and a file
        changes at once: what a step then shows is not our doing."""

        @functools.wraps(step)
        def attempt(tries=3):
            try:
                return step()
            except Failure:
                if tries == 1 or self.machine.run("pidof umtprd").status == 0:
                    raise
                self.restart_phone()
                return attempt(tries - 1)

        return attempt

    def broken_off_upload_goes_on(self):
        self.shell(f"rm -f {PHONE}/film {PHONE}/.tessary-part-of-*")
        self.restart_phone()
        return self.copy_twice(f"put {self.device} /tmp/film /", "/tmp/film", PHONE, FILM)

    def broken_off_download_goes_on(self):
        self.shell("rm -rf /tmp/clips; mkdir /tmp/clips")
        self.shell(f"head -c {CLIP * MIB} /tmp/film >{PHONE}/clip")
        command = f"get {self.device} /clip /tmp/clips/clip"
        return self.copy_twice(command, f"{PHONE}/clip", "/tmp/clips", CLIP)

    def copy_twice(self, command, source, target, mebibytes):
        """Pulls the cable at 70 %, and copies again."""
        self.start_long_copy(command, then=UNPLUG, mebibytes=mebibytes * 7 // 10)
        self.expect_broken_off(self.machine.finish(30), 1)
        part = int(self.shell(f"stat -c %s {target}/.tessary-part-of-*"))
        check(part > mebibytes * MIB // 2, f"{part} bytes wait to be gone on with")
        self.restart_phone()
        watch = f"while usleep 20000; do {self.moved()}; done 2>/dev/null >/tmp/moved"
        copy = f"{self.CLI} {command}; status=$?; kill $watch; exit $status"
        result = self.machine.run(f"({watch}) & watch=$!; {copy}", 90)
        check(result.status == 0, "the second copy failed", result)
        self.shell(f"cmp {source} {target}/{source.rsplit('/', 1)[1]}")
        left = self.shell(f"ls -A {target}").split()
        check(not any(name.startswith(".tessary") for name in left), f"left behind: {left}")
        moved = int(self.shell("sort -n /tmp/moved | tail -n 1"))
        check(moved <= mebibytes // 2, f"{moved} MiB of {mebibytes} moved again")
        return f"{part // MIB} of {mebibytes} MiB were there, {moved} moved after that"

    def vendor_specific_interface_is_a_phone(self):
        self.stop_phone()
        self.start_phone("vendor-specific")
        self.device_is_listed()
        check("many" in self.names("/"), "the listing is wrong")


def run(arguments, scratch):
    image, modules = kernel.kernel_files(arguments.cache, kernel.GADGET_MODULES)
    programs = [arguments.files, arguments.cli, kernel.responder_file(arguments.cache)]
    initramfs.build(scratch / "initramfs", modules, programs, TEXTS, PARAMETERS)
    with Machine(image, scratch / "initramfs", scratch, []) as machine:
        test = GadgetTest(machine)
        steps = [
            test.file_system_works,
            test.device_is_listed,
            test.sizes_beyond_32_bits_are_told,
            test.edge_sizes_go_there_and_back,
            test.while_it_lives(test.broken_off_download_goes_on),
            test.while_it_lives(test.broken_off_upload_goes_on),
            test.vendor_specific_interface_is_a_phone,
        ]

        def begin():
            test.shell("sh /bin/setup", 60)
            test.start_phone("still-image")

        return perform(machine, begin, steps)


if __name__ == "__main__":
    sys.exit(main(run, __doc__, ["files", "cli"]))
