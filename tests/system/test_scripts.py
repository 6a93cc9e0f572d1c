"""Pictures for scripts: the very pixels, one line about what is wrong, a status, and nothing else."""
import os
import subprocess
import time
import unittest

from case import PictureTest, SystemTest
from desktop import A, B
from session import PATIENCE
from wayland_desktop import pattern
from wayland_sway import Sway, A as SWAY_A, B as SWAY_B


class Script(PictureTest):
    """Calls the program as a script does, in the home folder."""

    def take(self, *arguments, shell='exec "$0" --capturar "$@"', **environment):
        desktop = self.desktop
        return subprocess.run([*desktop.prefix, "bash", "-c", shell, desktop.program, *arguments], cwd=desktop.home,
                              env={**desktop.environment, **environment}, capture_output=True, timeout=PATIENCE, check=False)

    def taken(self, *arguments, **environment):
        """A file with the picture that came through standard output, and only that."""
        done = self.take("--salida", "-", *arguments, **environment)
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        path = self.desktop.folder / f"taken-{time.monotonic_ns()}.png"
        path.write_bytes(done.stdout)
        return path

    def refused(self, status, what, *arguments, **how):
        done = self.take(*arguments, **how)
        self.assertRegex(done.stderr.decode(), f"^vellumora: .*{what}.*\n$")
        self.assertEqual((done.returncode, done.stdout), (status, b""))

    def size(self, picture):
        return tuple(map(int, self.desktop.run("identify", "-format", "%w %h", str(picture)).split()))


class OnX11(Script, SystemTest):
    def setUp(self):
        super().setUp()
        self.desktop.witness((0, 0, 3520, 1200))
        self.root = self.desktop.screenshot()

    def assert_shows(self, picture, area):
        self.assertEqual(self.size(picture), area[2:])
        self.assert_same_pixels(self.desktop.pixels_of(picture), self.desktop.pixels_of(self.root, area))

    def test_screens_and_regions_in_device_pixels(self):
        desktop = self.desktop
        for screen, area in (("A", A), ("B", B)):
            self.assert_shows(self.taken("--pantalla", screen), area)
            desktop.xdotool("mousemove", area[0] + 50, area[1] + 50)
            self.assert_shows(self.taken(), area)  # the screen under the pointer
        self.assert_shows(self.taken("--pantalla", "B", "--region", "10,20,301x203"), (1930, 20, 301, 203))
        self.assert_shows(self.taken("--region", "101,203,1901x403"), (101, 203, 1901, 403))
        # What is not there is cut off.
        self.assert_shows(self.taken("--pantalla", "B", "--region", "-5,890,20x999"), (1920, 890, 15, 10))
        desk = self.taken("--pantalla", "todas")
        self.assertEqual(self.size(desk), (3520, 1200))
        for area in (A, B):
            self.assert_same_pixels(desktop.pixels_of(desk, area), desktop.pixels_of(self.root, area))
        self.assertEqual(set(desktop.pixels_of(desk, (1920, 900, 1600, 300))), {0})  # no screen there

    def test_what_cannot_be_had(self):
        picture = self.desktop.home / "kept.png"
        picture.write_bytes(b"kept")
        to = ("--salida", "kept.png")
        self.refused(2, "--region wants X,Y,WxH .* not \"1,2\"", *to, "--region", "1,2")
        self.refused(2, "where does the picture go", "--region", "0,0,1x1")
        self.refused(1, 'no screen "C"; there are: A, B', *to, "--pantalla", "C")
        self.refused(1, "outside; there are the pixels 0,0,3520x1200", *to, "--region", "3520,0,9x9")
        self.refused(1, "outside; there are the pixels 0,0,1600x900", *to, "--region", "0,900,9x9", "--pantalla", "B")
        self.refused(1, "outside", *to, "--region", "2000,950,9x9")  # between the screens
        self.refused(1, "does not let programs see the screen", *to, XDG_SESSION_TYPE="wayland", WAYLAND_DISPLAY="gone",
                     VELLUMORA_PLATAFORMA="x11", QT_QPA_PLATFORM="xcb")
        self.refused(1, "there is no display", *to, DISPLAY="")
        self.refused(1, "the display :77777 cannot be opened", *to, DISPLAY=":77777")
        self.refused(1, "cannot write the picture to kept.png/below: ", "--salida", "kept.png/below")
        self.refused(1, "cannot write the picture to .: ", "--salida", ".")
        self.assertEqual(picture.read_bytes(), b"kept")
        self.assertEqual([path.name for path in self.desktop.home.glob("kept*")], ["kept.png"])

    def test_files_pipes_and_streams_that_are_not_there(self):
        home = self.desktop.home
        (home / "picture.png").write_bytes(b"replaced")
        (home / "picture.png").chmod(0o640)
        done = self.take("--salida", "picture.png")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, b"", b""))
        self.assertEqual((home / "picture.png").stat().st_mode & 0o777, 0o640)
        picture = (home / "picture.png").read_bytes()
        os.mkfifo(home / "pipe")
        self.assertEqual(self.take(shell='"$0" --capturar --salida pipe & cat pipe; wait $!').stdout, picture)
        self.refused(1, "standard output: Broken pipe", shell='set -o pipefail; "$0" --capturar --salida - | true')
        self.refused(1, "standard output: Bad file", shell='exec "$0" --capturar --salida - >&-')
        self.refused(1, "standard output: No space", shell='exec "$0" --capturar --salida - >/dev/full')
        # Nothing that the program opens takes the place of a missing stream.
        done = self.take(shell='exec "$0" --capturar --salida closed.png <&- >&- 2>&-')
        self.assertEqual((done.returncode, (home / "closed.png").read_bytes()), (0, picture))
        done = self.take(shell='exec "$0" --capturar --salida /no/where <&- >&- 2>&-')
        self.assertEqual(done.returncode, 1)

    def test_beside_a_running_one_and_during_its_capture(self):
        desktop = self.desktop
        desktop.xdotool("mousemove", 100, 100)
        desktop.start()
        before = desktop.log()
        self.assert_shows(self.taken(), A)
        desktop.press_shortcut()
        self.assert_same_pixels(desktop.pixels_of(self.taken("--pantalla", "B")), desktop.pixels(B))  # frozen, as it is seen
        self.assertEqual(len(desktop.overlays()), 2)
        self.escape()
        self.assertEqual(desktop.log().count("atajo"), before.count("atajo") + 1)
        self.assert_shows(self.taken(), A)

    def test_in_a_home_that_cannot_be_written(self):
        home = self.desktop.folder / "file"
        home.write_text("no folder", "utf-8")
        self.assert_shows(self.taken("--pantalla", "B", HOME=str(home), XDG_RUNTIME_DIR=""), B)


class OnSway(Script):
    def setUp(self):
        self.desktop = Sway()
        self.addCleanup(self.desktop.close)
        self.desktop.witnesses()
        self.desktop.move_to((SWAY_A.width - 60, 600))  # this compositor paints the pointer into the picture

    def test_outputs_of_two_scales(self):
        desktop = self.desktop
        for output, edge in ((SWAY_A, 120), (SWAY_B, 0)):
            area = (0, 0, output.width - edge, output.height)
            region = "0,0,{}x{}".format(*area[2:])
            self.assert_same_pixels(desktop.pixels_of(self.taken("--pantalla", output.name, "--region", region)), pattern(area))
        odd = (101, 203, 301, 103)
        region = "{},{},{}x{}".format(*odd)
        self.assert_same_pixels(desktop.pixels_of(self.taken("--region", region)), pattern(odd))
        # The dense one first, each in pixels of its own, with nothing between them.
        desk = self.taken("--pantalla", "todas")
        self.assertEqual(self.size(desk), (SWAY_A.width + SWAY_B.width, SWAY_A.height))
        self.assert_same_pixels(desktop.pixels_of(desk, (0, 0, 1800, 1200)), pattern((0, 0, 1800, 1200)))
        self.assert_same_pixels(desktop.pixels_of(desk, (1920, 0, 1600, 900)), pattern((0, 0, 1600, 900)))
        self.refused(1, 'no screen "DP-1"; there are: HEADLESS-1, HEADLESS-2', "--salida", "-", "--pantalla", "DP-1")


if __name__ == "__main__":
    unittest.main()
