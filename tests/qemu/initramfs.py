"""The emulated machine's file system: busybox, kernel modules, programs with their libraries."""

import pathlib
import re
import shutil
import subprocess
import tempfile

INIT = """#!/bin/busybox sh
/bin/busybox --install -s /bin
export PATH=/bin HOME=/tmp LC_ALL=C.UTF-8
mount -t proc proc /proc
mount -t sysfs sysfs /sys
mount -t devtmpfs devtmpfs /dev
exec </dev/console >/dev/console 2>&1
mount -t tmpfs -o size=75% tmpfs /tmp
echo 1 >/proc/sys/kernel/printk
{loading}
stty -echo -onlcr
echo @@booted
while read -r line; do eval "$line"; done
"""


def _libraries(program):
    """What ldd lists, the loader included: paths on this machine, which the other one keeps."""
    listing = subprocess.run(["ldd", str(program)], capture_output=True, text=True, check=True)
    return re.findall(r"(/\S+) \(0x", listing.stdout)


def build(target, modules, programs, texts=None, parameters=None, files=()):
    """Writes the archive. `programs` land in /bin under their own names, `texts` under theirs,
    `files` where they are here; `parameters` are of modules, by their names."""
    busybox = shutil.which("busybox")
    if not busybox:
        raise FileNotFoundError("busybox is needed (package busybox-static)")
    with tempfile.TemporaryDirectory(dir=target.parent) as scratch:
        root = pathlib.Path(scratch)

        def put(source, name):
            (root / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, root / name)

        for folder in ("dev", "proc", "sys", "tmp"):
            (root / folder).mkdir()
        put(busybox, "bin/busybox")
        libraries = set(pathlib.Path("/usr/lib/locale/C.utf8").glob("**/*"))
        for program in programs:
            put(program, f"bin/{program.name}")
            libraries.update(pathlib.Path(library) for library in _libraries(program))
        for library in [*libraries, *files]:
            if library.is_file():
                put(library, str(library).lstrip("/"))
        for module in modules:
            put(module, f"modules/{module.name}")
        for name, text in (texts or {}).items():
            (root / name).parent.mkdir(parents=True, exist_ok=True)
            (root / name).write_text(text)
        loading = [
            f"insmod /modules/{module.name} {(parameters or {}).get(module.name, '')}"
            for module in modules
        ]
        (root / "init").write_text(INIT.replace("{loading}", "\n".join(loading)))
        (root / "init").chmod(0o755)
        names = "\n".join(str(path.relative_to(root)) for path in sorted(root.rglob("*")))
        with open(target, "wb") as archive:
            subprocess.run(["cpio", "--quiet", "-o", "-H", "newc"], cwd=root, stdout=archive,
                           input=names.encode(), check=True)  # fmt: skip
