"""Debian's own kernel with the modules that the emulated machines need, and the responder that runs
in one of them: unpacked, not installed."""

import fcntl
import pathlib
import re
import shutil
import subprocess
import tempfile

# In the order in which they are loaded
USB_MODULES = ["drivers/usb/common/usb-common.ko", "drivers/usb/core/usbcore.ko"]
MODULES = USB_MODULES + ["drivers/usb/host/xhci-hcd.ko", "drivers/usb/host/xhci-pci.ko"]
# Of a machine that is the phone as well
GADGET_MODULES = USB_MODULES + [
    "fs/configfs/configfs.ko",
    "drivers/usb/gadget/udc/udc-core.ko",
    "drivers/usb/gadget/libcomposite.ko",
    "drivers/usb/gadget/function/usb_f_fs.ko",
    "drivers/usb/gadget/udc/dummy_hcd.ko",
]
# Of other clients, which show a phone as a file system
FUSE_MODULES = ["fs/fuse/fuse.ko"]


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


def _download(name, folder):
    """`name` is a function, since lists that are updated may hold another name."""
    try:
        _run(["apt-get", "download", name()], folder)
    except KernelError:
        # Old lists, or none at all, as in a fresh container.
        _run(["apt-get", "update"])
        _run(["apt-get", "download", name()], folder)
    return next(folder.glob("*.deb"))


def _fetch(cache, kept, name, wanted):
    """The folder `kept` of the cache with files of a package: `wanted` finds them in its tree."""
    cache.mkdir(parents=True, exist_ok=True)
    target = cache / kept
    with open(cache / "lock", "w") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        if target.exists():
            return target
        try:
            with tempfile.TemporaryDirectory(dir=cache) as scratch:
                scratch = pathlib.Path(scratch)
                tree = scratch / "tree"
                _run(["dpkg-deb", "-x", str(_download(name, scratch)), str(tree)])
                parts = scratch / "parts"
                parts.mkdir()
                for file, called in wanted(tree):
                    shutil.copy(file, parts / called)
                parts.rename(target)
        except (KernelError, StopIteration, OSError) as error:
            raise KernelError(
                f"no {kept} for the emulated machine: {error or 'unexpected package'}\n"
                f"It is fetched with apt-get once and kept in {target}."
            ) from error
    return target


def _kernel_parts(tree):
    modules = next(tree.glob("lib/modules/*/kernel"))
    yield next(tree.glob("boot/vmlinuz-*")), "vmlinuz"
    for module in MODULES + GADGET_MODULES + FUSE_MODULES:
        yield modules / module, pathlib.Path(module).name


def kernel_files(cache, wanted=MODULES):
    """(kernel, modules in the order of loading). Downloads the package unless the cache has it."""
    folder = _fetch(cache, "kernel-with-modules", _package_name, _kernel_parts)
    return folder / "vmlinuz", [folder / pathlib.Path(module).name for module in wanted]


def responder_file(cache):
    """An MTP responder for Linux's own gadgets."""
    parts = lambda tree: [(tree / "usr/bin/umtprd", "umtprd")]
    return _fetch(cache, "responder", lambda: "umtp-responder", parts) / "umtprd"
