"""The three modes of the command line, on good and on bad arguments; what they leave in their folders."""
import subprocess
import unittest
from pathlib import Path

from case import SystemTest
from desktop import ID, PROGRAM, Process, wait_for

SAMPLE = Path(__file__).resolve().parents[2] / "resources/sample.svg"
SIZE = (1280, 800)
SHAPES = ["linea", "flecha", "visto", "arco", "circulo", "elipse", "estrella", "triangulo", "rectangulo", "rombo", "cuadrilatero",
          "corazon"]
RED = (255, 59, 48)


class Modes(SystemTest):
    window_manager = "openbox"

    def setUp(self):
        super().setUp()
        self.out = self.desktop.folder / "out"

    def finished(self, *arguments, **environment):
        process = Process(self.desktop, "mode", [PROGRAM, *map(str, arguments)], **environment)
        wait_for(lambda: not process.running(), arguments[0])
        return process.status(), process.lines()

    def size(self, picture):
        return tuple(map(int, self.desktop.run("identify", "-format", "%w %h", str(picture)).split()))

    def pixel(self, picture, x, y):
        return tuple(self.desktop.pixels_of(picture, (x, y, 1, 1)))

    def refused(self, what, *arguments, **environment):
        """Ends with status 1 after one line that says what is wrong."""
        status, lines = self.finished(*arguments, **environment)
        self.assertEqual(status, 1, lines)
        self.assertEqual(len(lines), 1, lines)
        self.assertRegex(lines[0], f"^vellumora: .*{what}")

    def test_the_demonstration(self):
        plain = self.desktop.folder / "plain.png"
        self.desktop.run("convert", "-size", f"{SIZE[0]}x{SIZE[1]}", "gradient:#204060-#c0a080", "-depth", "8", str(plain))
        status, lines = self.finished("--demo", plain, self.out)
        self.assertEqual(status, 0, lines)
        pictures = sorted(path.name for path in self.out.iterdir())
        self.assertEqual(sorted(line for line in lines if line.endswith(".png")), [str(self.out / name) for name in pictures])
        self.assertEqual(sorted(line for line in lines if line.startswith("figura ")),
                         sorted(2 * [f"figura {shape}" for shape in SHAPES]))
        for scene in ("hint", "selection", "text", "palette", "tip", "copied"):
            here = [name for name in pictures if f"-{scene}-" in name]
            self.assertEqual([name.split("-", 1)[1] for name in here],
                             [f"{scene}-{code}{scale}.png" for code in ("de", "en", "es", "fr", "it", "pt") for scale in ("", "@2x")])
            # On the small dense screen the bar has no room for a text, and two languages copy with the same word.
            self.assertGreaterEqual(len({(self.out / name).read_bytes() for name in here if "@2x" not in name}), 5)

        hint, marks, copied = (self.out / name for name in ("01-hint-en.png", "12-marks-en.png", "18-picture-en.png"))
        self.assertEqual(self.size(hint), SIZE)
        dimmed = [round(0.55 * value) for value in self.pixel(plain, 300, 600)]
        self.assertLessEqual(max(abs(a - b) for a, b in zip(self.pixel(hint, 300, 600), dimmed)), 2)
        # The selection begins at (106, 150); the right edge of the rectangle drawn in it is at 669.
        self.assertEqual(self.size(copied), (585, 391))
        self.assertEqual(self.pixel(marks, 669, 270), RED)
        self.assertEqual(self.pixel(copied, 669 - 106, 270 - 150), RED)
        self.assertEqual(self.size(self.out / "18-picture-en@2x.png"), (586, 390))  # whole points are two pixels
        # Nothing of this is the user's.
        self.assertFalse((self.desktop.home / ".config/Vellumora").exists())
        self.assertEqual(self.desktop.log(), "")

    def test_one_sample_of_the_demonstration(self):
        status, lines = self.finished("--demo", SAMPLE, self.out, VELLUMORA_DEMO_MUESTRA="estrella")
        self.assertEqual((status, lines.count("figura estrella")), (0, 2))
        self.assertEqual(sorted(path.name.split("-")[1] for path in self.out.iterdir()), ["estrella", "estrella"])
        self.refused("no sample .nonsense.*; there are: hint ", "--demo", SAMPLE, self.out, VELLUMORA_DEMO_MUESTRA="nonsense")

    def test_the_largest_screens_there_are(self):
        large = self.desktop.folder / "large.png"
        self.desktop.run("convert", "-size", "7680x4320", "xc:gray", str(large))
        status, lines = self.finished("--demo", large, self.out, VELLUMORA_DEMO_MUESTRA="line")
        self.assertEqual(status, 0, lines)
        self.assertEqual({self.size(path) for path in self.out.iterdir()}, {(7680, 4320)})

    def test_the_film_of_the_glow(self):
        status, lines = self.finished("--prueba-halo", SAMPLE, self.out)
        self.assertEqual(status, 0, lines)
        stills = {}
        for name, count in (("01-turn", 8), ("02-pause", 3), ("03-gentle-pulse", 8), ("04-strong-pulse", 8)):
            film = self.out / f"{name}.png"
            self.assertEqual(self.size(film), (320 * count, 200))
            stills[name] = [self.desktop.pixels_of(film, (320 * i, 0, 320, 200)) for i in range(count)]
            self.assertEqual(stills[name][0][3 * (320 * 100 + 160):][:3], stills["01-turn"][0][3 * (320 * 100 + 160):][:3])
        self.assertEqual(len(set(stills["01-turn"])), 8)
        self.assertEqual(len(set(stills["02-pause"])), 1)
        frames = [line.split(": ")[1] for line in lines if line.startswith("0")]
        self.assertEqual(frames[1], "no frames")
        for text in (frames[0], frames[2], frames[3]):
            self.assertRegex(text, r"^\d+ frames, median [\d.]+ ms, slowest [\d.]+ ms$")
        # A pulse is far outside of where the glow is at rest.
        far = 3 * (320 * 35 + 160)
        self.assertNotEqual(stills["04-strong-pulse"][1][far:far + 3], stills["01-turn"][0][far:far + 3])

    def test_arguments_that_are_of_no_use(self):
        text = self.desktop.folder / "text.png"
        text.write_text("not a picture", "utf-8")
        for mode in ("--demo", "--prueba-halo"):
            self.refused("cannot read the picture .*missing.png", mode, "/nowhere/missing.png", self.out)
            self.refused("cannot read the picture .*text.png", mode, text, self.out)
            self.refused("cannot make the folder", mode, SAMPLE, text / "below")
        small = self.desktop.folder / "small.png"
        self.desktop.run("convert", "-size", "500x399", "xc:gray", str(small))
        self.refused("too small: it has 500 × 399 pixels", "--demo", small, self.out)
        self.refused("cannot make the folder", "--selftest", text / "below")
        self.assertFalse(self.out.exists())
        del self.desktop.environment["DISPLAY"]
        self.refused("there is no display", "--selftest", self.out)

    def test_the_self_test(self):
        desktop = self.desktop
        desktop.witness()
        before = desktop.pixels((40, 40, 60, 60))
        entry = desktop.home / f".config/autostart/{ID}.desktop"
        entry.parent.mkdir(parents=True)
        entry.write_text(f"[Desktop Entry]\nType=Application\nExec={PROGRAM}\nHidden=true\n", "utf-8")
        entry.chmod(0o640)
        own = (entry.read_bytes(), entry.stat())
        subprocess.run(["xclip", "-selection", "clipboard"], input=b"kept", env=desktop.environment, check=True)
        status, lines = self.finished("--selftest", self.out)
        self.assertEqual(status, 0, lines)
        report = (self.out / "report.txt").read_text("utf-8").splitlines()
        self.assertEqual([line for line in lines if not line.endswith(".png")], report)
        found = {line.split()[0]: line.split()[1] for line in report if line.split()[1:2] in (["works"], ["missing"])}
        self.assertEqual(list(found),
                         ["capture", "overlays", "editor", "clipboard", "shortcut", "tray", "sound", "login", "updates"])
        self.assertEqual({name for name, state in found.items() if state == "works"},
                         {"capture", "overlays", "editor", "clipboard", "shortcut", "login"})
        self.assertEqual(desktop.pixels_of(self.out / "01-screen-A.png", (40, 40, 60, 60)), before)
        self.assertEqual(self.size(self.out / "02-overlay-B.png"), (1600, 900))
        self.assertEqual((entry.read_bytes(), entry.stat().st_mode, entry.stat().st_mtime),
                         (own[0], own[1].st_mode, own[1].st_mtime))
        self.assertEqual([path.name for path in entry.parent.iterdir()], [entry.name])
        self.assertEqual(desktop.pixels((40, 40, 60, 60)), before)  # everything is closed again

        desktop.start()
        status, lines = self.finished("--selftest", self.out)
        self.assertEqual(status, 0)  # captures work all the same
        self.assertTrue(any(line.startswith("shortcut     missing  ⇧⌘X belongs to another program") for line in lines), lines)


if __name__ == "__main__":
    unittest.main()
