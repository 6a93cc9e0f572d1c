"""A private desktop for a test: an X server with two monitors, a window manager or none, a message bus or none, a home
folder of its own, and Vellumora running on it. Everything is driven and looked at from outside, through the X server."""
import os
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

PROGRAM = os.environ["VELLUMORA"]
HELPERS = Path(os.environ["VELLUMORA_HELPERS"])

# Two monitors side by side, in device pixels of the root window; A has two pixels a point.
A = (0, 0, 1920, 1200)
B = (1920, 0, 1600, 900)
PATIENCE = 20  # seconds; a wait that takes longer has failed


def wait_for(condition, what):
    """Returns what the condition answers as soon as that is true."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        answer = condition()
        if answer:
            return answer
        time.sleep(0.02)
    raise AssertionError(f"waited in vain for {what}")


class Process:
    """A program of the test. What it prints is kept in a file, so that nothing waits for an unread pipe."""

    def __init__(self, desktop, name, command, **environment):
        self.output = desktop.folder / f"{name}-{len(desktop.processes)}.out"
        with open(self.output, "wb") as output:
            self.process = subprocess.Popen(command, env={**desktop.environment, **environment}, stdout=output,
                                            stderr=subprocess.STDOUT, cwd=desktop.home)
        desktop.processes.append(self)

    def lines(self):
        return self.output.read_text("utf-8", "replace").splitlines()

    def says(self, start):
        """The first line with this beginning."""
        return wait_for(lambda: next((line for line in self.lines() if line.startswith(start)), None), start)

    def running(self):
        return self.process.poll() is None

    def status(self):
        return self.process.wait(PATIENCE)

    def end(self):
        if self.running():
            self.process.terminate()
        try:
            self.process.wait(5)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()


class Desktop:
    def __init__(self, window_manager=None, bus=False, server_options=(), monitors=(A, B), scales=(2, 1)):
        self.folder = Path(tempfile.mkdtemp(prefix="vellumora-test-"))
        self.home = self.folder / "home"
        (self.home / "Library/Logs").mkdir(parents=True)
        (self.home / "Pictures").mkdir()
        runtime = self.folder / "run"
        runtime.mkdir(mode=0o700)
        self.processes = []
        keep = ("PATH", "LD_LIBRARY_PATH", "ASAN_OPTIONS", "LSAN_OPTIONS")
        self.environment = {name: os.environ[name] for name in keep if name in os.environ}
        self.environment |= {"HOME": str(self.home), "XDG_RUNTIME_DIR": str(runtime), "LANG": "C.UTF-8",
                             "VELLUMORA_IDIOMA": "en", "QT_SCREEN_SCALE_FACTORS": f"A={scales[0]};B={scales[1]}", "NO_AT_BRIDGE": "1"}
        self.monitors = monitors
        self.scales = scales
        self.server = self._start_server(server_options)
        if window_manager:
            # It overlooks windows that come while it starts, so it says when it is done.
            ready = self.folder / "window-manager-ready"
            Process(self, window_manager, [window_manager, "--startup", f"touch {ready}"])
            wait_for(ready.exists, window_manager)
        if bus:
            daemon = Process(self, "bus", ["dbus-daemon", "--session", "--nofork", "--print-address"])
            self.environment["DBUS_SESSION_BUS_ADDRESS"] = daemon.says("unix:")

    def _start_server(self, options):
        read, write = os.pipe()
        width = max(x + width for x, _, width, _ in self.monitors)
        height = max(y + height for _, y, _, height in self.monitors)
        server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", f"{width}x{height}x24", "-nolisten", "tcp", "-noreset",
             *options],
            pass_fds=[write], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as answer:
            self.environment["DISPLAY"] = ":" + answer.readline().strip()
        for name, output in (("A", "screen"), ("B", "none")):
            self.set_monitor(name, output)
        return server

    def set_monitor(self, name, output="none"):
        x, y, width, height = self.monitors[ord(name) - ord("A")]
        # The millimetres of a screen of 96 dots an inch, so that nobody guesses another scale.
        self.run("xrandr", "--setmonitor", name, f"{width}/{width * 254 // 960}x{height}/{height * 254 // 960}+{x}+{y}", output)

    def close(self):
        for process in reversed(self.processes):
            process.end()
        self.server.terminate()
        self.server.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def run(self, *command, binary=False):
        """What a command prints; an empty text when it fails."""
        done = subprocess.run(command, env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              timeout=PATIENCE, check=False)
        return done.stdout if binary else done.stdout.decode("utf-8", "replace")

    # Other programs.

    def witness(self, place=A, delay=0):
        """A window of another program over that place, with the keyboard focus; and its number."""
        process = Process(self, "witness", [HELPERS / "witness", *map(str, place), str(delay)])
        window = int(process.says("window").split()[1])
        wait_for(lambda: self.focus() == window, "the focus of the witness")
        return process, window

    # Vellumora.

    def start(self, *arguments, **environment):
        before = self.log().count("registro de atajo")
        process = Process(self, "vellumora", [PROGRAM, *arguments], **environment)
        if not arguments:
            wait_for(lambda: self.log().count("registro de atajo") > before, "the hot key")
        return process

    def store(self, **defaults):
        """Sets values in the user's defaults before the program starts."""
        folder = self.home / ".config/Vellumora"
        folder.mkdir(parents=True, exist_ok=True)
        lines = [f"{key}={value}" for key, value in defaults.items()]
        (folder / "Vellumora.conf").write_text("\n".join(["[General]", *lines, ""]), "utf-8")

    def log(self):
        path = self.home / "Library/Logs/Vellumora.log"
        return path.read_text("utf-8") if path.exists() else ""

    def overlays(self):
        return self.windows("^Vellumora$")

    def press_shortcut(self):
        """Freezes the screens and returns when both overlays are painted."""
        self.key("shift+super+x")
        self.wait_for_overlays()

    def wait_for_overlays(self):
        wait_for(lambda: len(self.overlays()) == 2, "two overlays")
        # The product's badge is the same dark pill in the corner of every screen.
        for (x, y, width, height), scale in zip(self.monitors, self.scales):
            corner = (x + width - round(40 * scale), y + height - round(20 * scale), 1, 1)
            wait_for(lambda: max(self.pixels(corner)) < 40, "painted overlays")

    def wait_until_over(self):
        wait_for(lambda: not self.overlays(), "the end of the capture")

    def drag(self, start, end):
        """From one pixel of the root window to another."""
        self.xdotool("mousemove", *start)
        self.xdotool("mousedown", 1)
        for step in range(1, 5):
            self.xdotool("mousemove", *(a + (b - a) * step // 4 for a, b in zip(start, end)))
        self.xdotool("mouseup", 1)

    # Input and pictures.

    def xdotool(self, *words):
        return self.run("xdotool", *map(str, words))

    def key(self, *names):
        self.xdotool("key", "--delay", 0, *names)

    def type(self, text):
        self.xdotool("type", "--delay", 0, text)

    def windows(self, name):
        return self.xdotool("search", "--onlyvisible", "--name", name).split()

    def focus(self):
        return int(self.xdotool("getwindowfocus", "-f").strip() or 0)

    def screenshot(self):
        """The whole root window as a file, for pixels_of."""
        path = self.folder / f"screen-{time.monotonic_ns()}.png"
        self.run("import", "-window", "root", str(path))
        return path

    def pixels(self, area):
        """The red, green and blue bytes of an area of the root window now."""
        x, y, width, height = area
        return self.run("import", "-window", "root", "-crop", f"{width}x{height}+{x}+{y}", "-depth", "8", "rgb:-",
                        binary=True)

    def pixels_at_rest(self, area):
        """The same, once all that was typed and drawn is on the screen."""
        last = [None]

        def unchanged():
            before, last[0] = last[0], self.pixels(area)
            return before == last[0]

        wait_for(unchanged, "a screen at rest")
        return last[0]

    def pixels_of(self, picture, area=None):
        crop = ["-crop", "{2}x{3}+{0}+{1}".format(*area), "+repage"] if area else []
        return self.run("convert", str(picture), *crop, "-depth", "8", "rgb:-", binary=True)

    def clipboard(self, kind):
        path = self.folder / f"clipboard-{time.monotonic_ns()}.{kind}"
        path.write_bytes(self.run("timeout", "5", "xclip", "-selection", "clipboard", "-t", f"image/{kind}", "-o",
                                  binary=True))
        return path
