"""Debian's own kernel and the modules that the emulated machine needs: unpacked, not installed."""

import fcntl
import pathlib
import re
import shutil
import subprocess
import tempfile

MODULES = [
    "drivers/usb/common/usb-common.ko",
    "drivers/usb/core/usbcore.ko",
    "drivers/usb/host/xhci-hcd.ko",
    "drivers/usb/host/xhci-pci.ko",
]  # in the order in which they are loaded


class KernelError(Exception):
    pass


def _run(command, folder=None):
    try:
        done = subprocess.run(command, cwd=folder, capture_output=True, text=True, timeout=120)
    except (OSError, subprocess.TimeoutExpired) as error:
        raise KernelError(f"{command[0]}: {error}") from error
    if done.returncode != 0:
        raise KernelError(f"{' '.join(command)}: {done.stderr.strip()}")
    return done.stdout


def _package_name():
    """The package behind linux-image-amd64, which changes its name with every kernel."""
    dependencies = _run(["apt-cache", "depends", "linux-image-amd64"])
    names = re.findall(r"Depends: (linux-image-\S+)", dependencies)
    if not names:
        raise KernelError("apt knows no package linux-image-amd64")
    return names[0]


def _download(folder):
    try:
        _run(["apt-get", "download", _package_name()], folder)
    except KernelError:
        # Old lists, or none at all, as in a fresh container.
        _run(["apt-get", "update"])
        _run(["apt-get", "download", _package_name()], folder)
    return next(folder.glob("linux-image-*.deb"))


def _unpack(package, target):
    with tempfile.TemporaryDirectory(dir=target.parent) as scratch:
        tree = pathlib.Path(scratch) / "tree"
        _run(["dpkg-deb", "-x", str(package), str(tree)])
        kernel = next(tree.glob("boot/vmlinuz-*"))
        modules = next(tree.glob("lib/modules/*/kernel"))
        parts = pathlib.Path(scratch) / "parts"
        parts.mkdir()
        shutil.copy(kernel, parts / "vmlinuz")
        for module in MODULES:
            shutil.copy(modules / module, parts)
        parts.rename(target)


def kernel_files(cache):
    """(kernel, modules in the order of loading). Downloads the package unless the cache has it."""
    cache.mkdir(parents=True, exist_ok=True)
    target = cache / "kernel"
    with open(cache / "lock", "w") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        if not target.exists():
            try:
                with tempfile.TemporaryDirectory(dir=cache) as scratch:
                    _unpack(_download(pathlib.Path(scratch)), target)
            except (KernelError, StopIteration) as error:
                raise KernelError(
                    f"no kernel for the emulated machine: {error or 'unexpected package'}\n"
                    f"It is fetched with apt-get once and kept in {target}."
                ) from error
    return target / "vmlinuz", [target / pathlib.Path(module).name for module in MODULES]
