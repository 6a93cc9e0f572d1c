"""A private desktop for a test: an X server with two monitors, a window manager or none, a message bus or none, a home
folder of its own, and Vellumora running on it. Everything is driven and looked at from outside, through the X server."""
import os
import subprocess
import time

from session import HELPERS, ID, PROGRAM, PATIENCE, Process, Session, wait_for  # noqa: F401

# Two monitors side by side, in device pixels of the root window; A has two pixels a point.
A = (0, 0, 1920, 1200)
B = (1920, 0, 1600, 900)


class Desktop(Session):
    def __init__(self, window_manager=None, bus=False, server_options=(), monitors=(A, B), scales=(2, 1)):
        super().__init__()
        self.environment["QT_SCREEN_SCALE_FACTORS"] = f"A={scales[0]};B={scales[1]}"
        self.monitors = monitors
        self.scales = scales
        self.server = self._start_server(server_options)
        if window_manager:
            self.start_window_manager(window_manager)
        if bus:
            self.start_bus()

    def start_window_manager(self, name):
        # It overlooks windows that come while it starts, so it says when it is done.
        ready = self.folder / "window-manager-ready"
        ready.unlink(missing_ok=True)
        manager = Process(self, name, [name, "--startup", f"touch {ready}"])
        wait_for(ready.exists, name)
        return manager

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
        super().close()
        self.server.terminate()
        self.server.wait()

    # Other programs.

    def witness(self, place=A, delay=0):
        """A window of another program over that place, with the keyboard focus; and its number."""
        process = Process(self, "witness", [HELPERS / "witness", *map(str, place), str(delay)])
        window = int(process.says("window").split()[1])
        wait_for(lambda: self.focus() == window, "the focus of the witness")
        return process, window

    # Vellumora.

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

    def clipboard(self, kind):
        path = self.folder / f"clipboard-{time.monotonic_ns()}.{kind}"
        path.write_bytes(self.run("timeout", "5", "xclip", "-selection", "clipboard", "-t", f"image/{kind}", "-o",
                                  binary=True))
        return path
