#!/usr/bin/env python3
"""Measures the window beside those of two file managers, as their user meets them: from another process, on a
display of its own, with the keys of the display. Each program starts nine times, and works three times, by turns, in an
empty home and with a session bus of its own; medians are printed.

    benchmarks/window_peers.py --tessary build/release/bin/tessary

Every program shows folders of this computer; Tessary in the pane beside the phone's. A picture of the window says
when something is shown, a ping of the window system how long the main thread answers nobody. Needs Xvfb, xdotool,
python3-xlib and python3-numpy.
"""

import argparse
import os
import pathlib
import shutil
import signal
import statistics
import struct
import subprocess
import tempfile
import threading
import time
import zlib

import numpy
from Xlib import X, display, error
from Xlib.protocol import event

ENTRIES = 100_000
FILTER = "9876"  # of the names, twenty hold it
STARTS = 9
RUNS = 3
IDLE = 30  # seconds
PATIENCE = 120  # seconds, for anything
QUIET = 1.5  # seconds without a change: it is all there
SIZE = (1180, 740)
MARK = "WINDOW_PEERS"


def programs(tessary):
    """Name, command, keys that lead to a listing of this computer, keys of the filter."""
    return [
        ("tessary", [tessary], ["F3"], "ctrl+f"),
        ("pcmanfm-qt", ["pcmanfm-qt", "--new-window"], [], "ctrl+i"),
        ("dolphin", ["dolphin", "--new-window"], [], "ctrl+i"),
    ]


class Screen:
    """A virtual display, and what can be seen and done there."""

    def __init__(self):
        reading, writing = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", "1400x900x24", "-nolisten",
                                        "tcp"], pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as number:
            self.name = f":{int(number.readline())}"  # once it takes programs
        self.display = display.Display(self.name)
        self.root = self.display.screen().root

    def window(self):
        """The first one that is as large as a main window."""
        for window in self.root.query_tree().children:
            try:
                if window.get_attributes().map_state == X.IsViewable and window.get_geometry().width >= 400:
                    return window
            except error.BadWindow:
                pass
        return None

    def picture(self, window, part=((0, 0), (1, 1))):
        """Part of what a window shows, in shares of its size."""
        geometry = window.get_geometry()
        (left, top), (right, bottom) = part
        x, y = int(geometry.width * left), int(geometry.height * top)
        width, height = int(geometry.width * (right - left)), int(geometry.height * (bottom - top))
        data = window.get_image(x, y, width, height, X.ZPixmap, 0xFFFFFFFF).data
        return numpy.frombuffer(data, dtype=numpy.uint32)

    def whole(self):
        """All of it, as rows of red, green and blue."""
        geometry = self.root.get_geometry()
        data = self.root.get_image(0, 0, geometry.width, geometry.height, X.ZPixmap, 0xFFFFFFFF).data
        return numpy.frombuffer(data, dtype=numpy.uint8).reshape(geometry.height, geometry.width, 4)[:, :, 2::-1]

    def keys(self, *keys):
        subprocess.run(["xdotool", "key", "--clearmodifiers", *keys], env=dict(os.environ, DISPLAY=self.name), check=True)

    def type(self, text):
        subprocess.run(["xdotool", "type", "--delay", "15", text], env=dict(os.environ, DISPLAY=self.name), check=True)

    def close(self):
        self.display.close()
        self.server.terminate()
        self.server.wait()


class Pings:
    """Asks a window every few milliseconds whether it is alive, and keeps the longest time to an answer."""

    def __init__(self, name, window_id):
        self.display = display.Display(name)
        self.window = self.display.create_resource_object("window", window_id)
        self.root = self.display.screen().root
        self.root.change_attributes(event_mask=X.SubstructureNotifyMask | X.SubstructureRedirectMask)
        self.protocols, self.ping = (self.display.intern_atom(each) for each in ("WM_PROTOCOLS", "_NET_WM_PING"))
        self.longest = 0.0
        self.count = 0
        self.going = True
        self.thread = threading.Thread(target=self.run)
        self.thread.start()

    def run(self):
        serial = 0
        while self.going:
            serial += 1
            sent = time.monotonic()
            message = event.ClientMessage(window=self.window, client_type=self.protocols,
                                          data=(32, [self.ping, serial, self.window.id, 0, 0]))
            self.window.send_event(message)
            self.display.flush()
            while self.going and not self.answered(serial):
                time.sleep(0.001)
            self.longest = max(self.longest, time.monotonic() - sent)
            self.count += 1
            time.sleep(0.004)

    def answered(self, serial):
        while self.display.pending_events():
            answer = self.display.next_event()
            if isinstance(answer, event.ClientMessage) and answer.client_type == self.protocols and answer.data[1][1] == serial:
                return True
        return False

    def end(self):
        """Milliseconds."""
        self.going = False
        self.thread.join()
        self.display.close()
        if self.count < 10:
            raise RuntimeError("the window answers no pings")
        return self.longest * 1000


def until(holds, what, seconds=PATIENCE):
    end = time.monotonic() + seconds
    while not (found := holds()):
        if time.monotonic() > end:
            raise RuntimeError(f"waited in vain for {what}")
        time.sleep(0.002)
    return found


def settles(screen, window, part, act):
    """Acts, and waits until a part of the window changes no more. Seconds to its first change, and to its last."""
    before = screen.picture(window, part)
    start = time.monotonic()
    act()
    first = last = None
    while time.monotonic() - start < PATIENCE:
        now = screen.picture(window, part)
        moment = time.monotonic()
        if not numpy.array_equal(now, before):
            first = first or moment
            last, before = moment, now
        elif moment - (last or start + 30) > QUIET:
            break
        time.sleep(0.005)
    if last is None:
        raise RuntimeError("the window shows nothing new")
    return first - start, last - start


def processes(mark):
    """Of a run: all that inherited its mark."""
    found = []
    for folder in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            if f"{MARK}={mark}".encode() in (folder / "environ").read_bytes().split(b"\0"):
                found.append(folder)
        except OSError:
            pass
    return found


def own(mark):
    """Without the bus and its services, which each desktop has anyway."""
    names = {}
    for folder in processes(mark):
        try:
            names[folder] = (folder / "comm").read_text().strip()
        except OSError:
            pass
    return [folder for folder, name in names.items()
            if not name.startswith(("dbus-", "at-spi", "xdotool", "dconf", "gvfs", "xdg-"))]


def memory(mark):
    """Proportional share, in MB."""
    total = 0
    for folder in own(mark):
        try:
            for line in (folder / "smaps_rollup").read_text().splitlines():
                if line.startswith("Pss:"):
                    total += int(line.split()[1])
        except OSError:
            pass
    return total / 1000


def seconds_of_cpu(mark):
    total = 0
    for folder in own(mark):
        try:
            fields = (folder / "stat").read_text().rpartition(")")[2].split()
            total += int(fields[11]) + int(fields[12])
        except OSError:
            pass
    return total / os.sysconf("SC_CLK_TCK")


def write_png(path, rows):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    height, width, _ = rows.shape
    pixels = numpy.hstack([numpy.zeros((height, 1), numpy.uint8), rows.reshape(height, width * 3)]).tobytes()
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)) +
                     chunk(b"IDAT", zlib.compress(pixels)) + chunk(b"IEND", b""))


LISTING = ((0.65, 0.3), (0.97, 0.8))  # within the listing of each of them


class Run:
    def __init__(self, screen, name, command, lead, filter_key, folders, shots):
        self.screen, self.name, self.lead, self.filter_key = screen, name, lead, filter_key
        self.shots = shots
        self.home = tempfile.mkdtemp(prefix="window-peers-")
        self.lent, self.folders = folders, pathlib.Path(self.home, "folders")
        self.lent.rename(self.folders)  # the pane shows this user's files
        self.mark = f"{name}-{time.monotonic_ns()}"
        environment = {key: value for key, value in os.environ.items()
                       if not key.startswith(("XDG_", "QT_", "DBUS_", "KDE_", "WAYLAND"))}
        runtime = pathlib.Path(self.home, "run")
        runtime.mkdir(mode=0o700)
        environment |= {"HOME": self.home, "DISPLAY": screen.name, "XDG_RUNTIME_DIR": str(runtime), MARK: self.mark,
                        "LANG": "C.UTF-8"}
        for number in range(5):
            pathlib.Path(self.home, f"file {number}.txt").touch()
        self.start = time.monotonic()
        self.process = subprocess.Popen(["dbus-run-session", "--", *command], env=environment, cwd=self.home,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True)

    def shoot(self, step):
        if self.shots:
            write_png(self.shots / f"{self.name}-{step}.png", self.screen.whole())

    def painted_window(self):
        window = until(self.screen.window, "a window")
        until(lambda: len(numpy.unique(self.screen.picture(window))) > 20, "something painted")
        return window

    def measure_start(self):
        self.painted_window()
        return {"start to painted (ms)": (time.monotonic() - self.start) * 1000}

    def measure_work(self):
        screen, figures = self.screen, {}
        window = self.painted_window()
        window.configure(x=0, y=0, width=SIZE[0], height=SIZE[1])
        window.set_input_focus(X.RevertToParent, X.CurrentTime)
        self.screen.display.sync()
        time.sleep(2)
        figures["memory at start (MB)"] = memory(self.mark)
        if self.lead:
            screen.keys(*self.lead)
            time.sleep(2)
        self.type_path(self.folders / "few")
        screen.keys("Return")
        time.sleep(2)
        self.shoot("few")

        pings = Pings(screen.name, window.id)
        self.type_path(self.folders / "many")
        first, last = settles(screen, window, LISTING, lambda: screen.keys("Return"))
        figures["100,000: first rows (ms)"], figures["100,000: all there (ms)"] = first * 1000, last * 1000
        self.shoot("many")
        figures["100,000: longest stall (ms)"] = pings.end()
        figures["memory with them (MB)"] = memory(self.mark)
        screen.keys(self.filter_key)
        time.sleep(1)
        screen.type(FILTER[:-1])
        time.sleep(QUIET)
        pings = Pings(screen.name, window.id)
        shown = settles(screen, window, LISTING, lambda: screen.type(FILTER[-1]))[1]
        figures["filter: last letter to shown (ms)"] = shown * 1000
        self.shoot("filter")
        figures["filter: longest stall (ms)"] = pings.end()
        before = seconds_of_cpu(self.mark)
        time.sleep(IDLE)
        figures["idle (% of a core)"] = (seconds_of_cpu(self.mark) - before) / IDLE * 100
        return figures

    def type_path(self, folder):
        self.screen.keys("ctrl+l")
        time.sleep(0.3)
        self.screen.keys("ctrl+a")
        self.screen.type(str(folder))
        time.sleep(1)  # whatever completes it has done so

    def end(self):
        for folder in processes(self.mark):
            try:
                os.kill(int(folder.name), signal.SIGTERM)
            except OSError:
                pass
        try:
            self.process.wait(10)
        except subprocess.TimeoutExpired:
            pass
        for folder in processes(self.mark):
            try:
                os.kill(int(folder.name), signal.SIGKILL)
            except OSError:
                pass
        self.folders.rename(self.lent)
        shutil.rmtree(self.home, ignore_errors=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--tessary", type=pathlib.Path, required=True)
    parser.add_argument("--starts", type=int, default=STARTS)
    parser.add_argument("--runs", type=int, default=RUNS)
    parser.add_argument("--shots", type=pathlib.Path, help="a folder for a picture of each step")
    arguments = parser.parse_args()
    if arguments.shots:
        arguments.shots.mkdir(parents=True, exist_ok=True)
    table = {}
    with tempfile.TemporaryDirectory() as scratch:
        folders = pathlib.Path(scratch, "folders")
        (folders / "few").mkdir(parents=True)
        (folders / "many").mkdir()
        for number in range(3):
            (folders / "few" / f"one {number}.txt").touch()
        for number in range(ENTRIES):
            (folders / "many" / f"entry {number:06}.txt").touch()
        for measure in [Run.measure_start] * arguments.starts + [Run.measure_work] * arguments.runs:
            for name, *rest in programs(str(arguments.tessary.resolve())):
                screen = Screen()
                run = Run(screen, name, *rest, folders, arguments.shots)
                try:
                    figures = measure(run)
                    for what, figure in figures.items():
                        table.setdefault(what, {}).setdefault(name, []).append(figure)
                finally:
                    run.end()
                    screen.close()
                print(f"{name}: " + ", ".join(f"{what} {figure:.0f}" for what, figure in figures.items()), flush=True)
    names = [name for name, *_ in programs("")]
    print(f"\n{'medians':36}" + "".join(f"{name:>14}" for name in names))
    for what, row in table.items():
        print(f"{what:36}" + "".join(f"{statistics.median(row[name]):14.1f}" for name in names))


if __name__ == "__main__":
    main()
