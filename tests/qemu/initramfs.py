"""The emulated machine's file system: busybox, kernel modules, programs with their libraries."""

import pathlib
import re
import shutil
import stat
import subprocess

INIT = """#!/bin/busybox sh
/bin/busybox --install -s /bin
export PATH=/bin HOME=/tmp LC_ALL=C.UTF-8
mount -t proc proc /proc
mount -t sysfs sysfs /sys
mount -t devtmpfs devtmpfs /dev
mount -t tmpfs -o size=75% tmpfs /tmp
echo 1 >/proc/sys/kernel/printk
for module in {modules}; do insmod /modules/$module; done
stty -echo -onlcr
echo @@booted
while read -r line; do eval "$line"; done
"""


class Archive:
    """A cpio archive in the "newc" format."""

    def __init__(self, file):
        self._file = file
        self._count = 0
        self._folders = set()

    def add(self, name, mode, data=b"", device=(0, 0)):
        self._count += 1
        encoded = name.encode() + b"\0"
        fields = (self._count, mode, 0, 0, 1, 0, len(data), 0, 0, *device, len(encoded), 0)
        header = b"070701" + b"".join(b"%08X" % field for field in fields) + encoded
        for part in (header, data):
            self._file.write(part + b"\0" * (-len(part) % 4))

    def folder(self, name):
        if name in self._folders:
            return
        self._folders.add(name)
        if "/" in name:
            self.folder(name.rpartition("/")[0])
        self.add(name, stat.S_IFDIR | 0o755)

    def file(self, name, data, mode=0o755):
        if "/" in name:
            self.folder(name.rpartition("/")[0])
        self.add(name, stat.S_IFREG | mode, data)

    def close(self):
        self.add("TRAILER!!!", 0)


def _libraries(program):
    """What ldd lists, the loader included: paths on this machine, which the other one keeps."""
    listing = subprocess.run(["ldd", str(program)], capture_output=True, text=True, check=True)
    return re.findall(r"(/\S+) \(0x", listing.stdout)


def build(target, modules, programs):
    """Writes the archive. `programs` land in /bin under their own names."""
    busybox = shutil.which("busybox")
    if not busybox:
        raise FileNotFoundError("busybox is needed (package busybox-static)")
    with open(target, "wb") as file:
        archive = Archive(file)
        for folder in ("bin", "dev", "proc", "sys", "tmp", "modules"):
            archive.folder(folder)
        archive.add("dev/console", stat.S_IFCHR | 0o600, device=(5, 1))
        archive.file("bin/busybox", pathlib.Path(busybox).read_bytes())
        libraries = set()
        for program in programs:
            archive.file("bin/" + program.name, program.read_bytes())
            libraries.update(_libraries(program))
        for locale in pathlib.Path("/usr/lib/locale/C.utf8").glob("*"):
            if locale.is_file():
                libraries.add(str(locale))
        for library in sorted(libraries):
            archive.file(library.lstrip("/"), pathlib.Path(library).read_bytes())
        for module in modules:
            archive.file("modules/" + module.name, module.read_bytes(), 0o644)
        names = " ".join(module.name for module in modules)
        archive.file("init", INIT.replace("{modules}", names).encode())
        archive.close()
