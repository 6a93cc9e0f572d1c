"""A private Wayland desktop for a test: a compositor without screens or input devices of the machine, with outputs of different
scale, another program's window on each of them, a hand that moves the mouse and presses keys, and an eye that is the
compositor's own tool. What differs between compositors is in wayland_sway, wayland_kwin and wayland_mutter."""
import atexit
import os
import re
import shutil
import subprocess
import tempfile
from pathlib import Path
from typing import NamedTuple

from session import HELPERS, PROGRAM, Process, Session, wait_for

NOBODY = 65534
BUTTON = 272
KEYS = {name: code for codes, names in (
    (range(1, 15), "Escape 1 2 3 4 5 6 7 8 9 0 minus equal BackSpace"), (range(15, 29), "Tab q w e r t y u i o p [ ] Return"),
    (range(29, 44), "ctrl a s d f g h j k l ; ' ` shift \\"), (range(44, 58), "z x c v b n m , . / Shift_R KP_Multiply alt space"),
    (range(58, 69), "Caps_Lock F1 F2 F3 F4 F5 F6 F7 F8 F9 F10"), ((103, 105, 106, 108, 125), "Up Left Right Down super"))
    for code, name in zip(codes, names.split())}
SHIFTED = {shifted: plain for shifted, plain in zip('!@#$%^&*()_+:"<>?', "1234567890-=;',./")}


class Output(NamedTuple):
    name: str
    width: int  # pixels, as the desktop sees it: a rotated one is turned upright
    height: int
    scale: int
    x: float = 0  # points of the desktop
    y: float = 0
    transform: str = "normal"

    def point(self, pixel):
        """Where one of its pixels begins, in points of the desktop."""
        return self.x + pixel[0] / self.scale, self.y + pixel[1] / self.scale

    @property
    def right(self):
        return self.point((self.width, self.height))[0]

    @property
    def bottom(self):
        return self.point((self.width, self.height))[1]


class Picture:
    """Pixels in memory, red, green and blue bytes."""

    def __init__(self, ppm):
        header = re.match(rb"P6\s+(\d+)\s+(\d+)\s+255\s", ppm)
        assert header, f"no picture but {ppm[:40]}"
        self.width, self.height = int(header[1]), int(header[2])
        self.bytes = ppm[header.end():]

    def crop(self, area):
        x, y, width, height = area
        rows = range(y, y + height)
        return b"".join(self.bytes[3 * (row * self.width + x):3 * (row * self.width + x + width)] for row in rows)


def pattern(area):
    """What the witness shows there."""
    x, y, width, height = area
    return bytes(value & 255 for row in range(y, y + height) for column in range(x, x + width)
                 for value in (column * 7, row * 5, column * 3 + row * 11))


class Hand:
    """Mouse and keyboard; they last as long as the hand."""

    def __init__(self, desktop):
        self.outputs = desktop.outputs
        width = max(output.right for output in self.outputs)
        height = max(output.bottom for output in self.outputs)
        self.process = subprocess.Popen(
            [*desktop.prefix, desktop.helpers / "wayland-hand", str(round(width)), str(round(height))], text=True,
            env=desktop.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        assert self.process.stdout.readline() == "ready\n", "the hand has no hold"

    def tell(self, *lines):
        """Returns when the compositor has heard all of them."""
        self.process.stdin.write("".join(f"{line}\n" for line in lines))
        self.process.stdin.flush()
        for line in lines:
            answer = self.process.stdout.readline()
            assert answer == "done\n", f"{line}: {answer}"

    def close(self):
        self.process.stdin.close()
        self.process.wait(5)
        self.process.stdout.close()


class WaylandDesktop(Session):
    """The base of the desktops. A compositor that refuses the superuser runs, with everything else, as nobody."""
    name = ""  # what the desktop calls itself
    variables = {}  # what else the desktop sets
    as_nobody = False
    witness_mode = ("full",)
    outputs_have_names = True

    def __init__(self, outputs, bus=False):
        super().__init__()
        self.outputs = outputs
        if self.as_nobody and os.getuid() == 0:
            self.prefix = ("setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups")
        self.program, self.helpers = readable_copies() if self.prefix else (PROGRAM, HELPERS)
        self.environment |= {"XDG_SESSION_TYPE": "wayland", "XDG_CURRENT_DESKTOP": self.name, **self.variables}
        self.hand = None
        self._own()
        if bus:
            self.start_bus(*self._bus_options())
        try:
            self.compositor = self._start_compositor()
            self.hand = Hand(self)
            self.move_to((outputs[0].width // 2, outputs[0].height // 2))
            self.key("shift")  # some make the keyboard only now, and fall over windows that ask for one before
        except BaseException:
            self.close()
            raise

    def _start_compositor(self):
        """Starts it, names its socket in the environment and returns when its outputs are as wanted."""
        raise NotImplementedError

    def _bus_options(self):
        """Of a bus on which nobody starts what this machine happens to have installed."""
        config = self.folder / "bus.conf"
        config.write_text("<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen><auth>EXTERNAL</auth>"
                          '<policy context="default"><allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/>'
                          '<allow own="*"/></policy></busconfig>', "utf-8")
        self._own()
        return [f"--config-file={config}"]

    def _own(self):
        """Hands what was made for the session over to its user."""
        if self.prefix:
            for path in (self.folder, *self.folder.rglob("*")):
                os.chown(path, NOBODY, NOBODY)

    def close(self):
        if self.hand:
            self.hand.close()
        super().close()

    def store(self, **defaults):
        super().store(**defaults)
        self._own()

    # Other programs.

    def witness(self, output):
        """Fills an output with the pattern."""
        name = output.name if self.outputs_have_names else f"{output.width}x{output.height}"
        process = Process(self, "witness", [self.helpers / "wayland-witness", name, *self.witness_mode])
        wait_for(lambda: self.shows_pattern(output), f"the pattern on {output.name}")
        return process

    def witnesses(self):
        """One on every output; that of the first has the keyboard."""
        return [self.witness(output) for output in reversed(self.outputs)][::-1]

    def shows_pattern(self, output):
        areas = ((output.width - 40, 0, 40, 8), (0, output.height - 8, 40, 8))
        return all(self.pixels(output, area) == pattern(area) for area in areas)

    def portal(self, *behaviours):
        portal = Process(self, "portal", [self.helpers / "wayland-portal", *behaviours])
        portal.says("ready")
        return portal

    # Input. Places are pixels of an output, the first unless named.

    def move_to(self, pixel, output=None):
        self.hand.tell("move {} {}".format(*(output or self.outputs[0]).point(pixel)))

    def button(self, down):
        self.hand.tell(f"button {BUTTON} {int(down)}")

    def click(self, pixel, output=None):
        self.move_to(pixel, output)
        self.button(True)
        self.button(False)

    def pull(self, stroke, output=None):
        """Moves along these pixels with the button down, and keeps it down."""
        self.move_to(stroke[0], output)
        self.button(True)
        for pixel in stroke[1:]:
            self.move_to(pixel, output)

    def drag(self, start, end, output=None):
        self.pull([start, *(tuple(a + (b - a) * step // 4 for a, b in zip(start, end)) for step in range(1, 5))], output)
        self.button(False)

    def key(self, *names):
        for name in names:
            codes = [KEYS[key] for key in name.split("+")]
            self.hand.tell(*(f"key {code} 1" for code in codes), *(f"key {code} 0" for code in reversed(codes)))

    def type(self, text):
        for letter in text:
            plain = SHIFTED.get(letter, letter.lower())
            plain = {" ": "space", "-": "minus", "=": "equal"}.get(plain, plain)
            self.key(plain if letter == plain or letter in " -=" else f"shift+{plain}")

    # Pictures.

    def look(self, output):
        """What is on an output now, by the compositor's own tool."""
        raise NotImplementedError

    def pixels(self, output, area):
        """The red, green and blue bytes of an area of an output now."""
        return self.look(output).crop(area)

    def clipboard(self, kind):
        """A file with what is there; its reader is given up when nobody answers."""
        path = self.folder / f"clipboard.{kind}"
        path.write_bytes(self.run("timeout", "5", "wl-paste", "-t", f"image/{kind}", binary=True))
        return path

    # Vellumora.

    def frozen(self, output):
        """The product's badge, a dark pill, is in the corner of an overlay."""
        corner = (output.width - round(40 * output.scale), output.height - round(20 * output.scale), 1, 1)
        return max(self.pixels(output, corner)) < 40

    def wait_for_overlays(self):
        for output in self.outputs:
            wait_for(lambda: self.frozen(output), f"the overlay on {output.name}")

    def wait_until_over(self):
        for output in self.outputs:
            wait_for(lambda: not self.frozen(output), f"the end of the capture on {output.name}")

    def capture(self):
        """Freezes the screens by a second start and returns when all overlays are painted."""
        assert self.start("--capturar").status() == 0
        self.wait_for_overlays()


def readable_copies():
    """The program and the helpers where nobody can read them, whatever the folder of the build lets him."""
    if not readable_copies.folder:
        folder = Path(tempfile.mkdtemp(prefix="vellumora-test-program-"))
        atexit.register(shutil.rmtree, folder, ignore_errors=True)
        folder.chmod(0o755)
        program = Path(PROGRAM)
        for path in (program, program.parent / "libvellumora.so", HELPERS / "panel", *HELPERS.glob("wayland-*")):
            if path.exists():
                Path(shutil.copy2(path, folder)).chmod(0o755)
        readable_copies.folder = folder
    return str(readable_copies.folder / Path(PROGRAM).name), readable_copies.folder


readable_copies.folder = None
