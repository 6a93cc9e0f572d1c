"""The settings with real keys: what is recorded is heard before the window manager and the program itself, and counts."""
import re
import unittest

from case import SystemTest
from desktop import HELPERS, ID, Process, wait_for

SCALE = 2  # the settings open on the first monitor
CTRL, SUPER, SHIFT = 0x40000, 0x100000, 0x20000


class Settings(SystemTest):
    window_manager = "openbox"
    bus = True

    def setUp(self):
        super().setUp()
        self.program = self.desktop.start()
        self.open()

    def start_again(self, wish):
        self.assertEqual(Process(self.desktop, "again", [*self.program.process.args, wish]).status(), 0)

    def open(self):
        desktop = self.desktop
        self.start_again("--ajustes")
        (self.window,) = wait_for(lambda: desktop.windows("^Vellumora Settings$"), "the settings")
        wait_for(lambda: desktop.focus() == int(self.window), "the focus of the settings")
        info = desktop.run("xwininfo", "-id", self.window)
        self.x, self.y, self.width = (int(re.search(rf"{name}: +(\d+)", info)[1])
                                      for name in ("Absolute upper-left X", "Absolute upper-left Y", "Width"))

    def close(self):
        wait_for(lambda: self.desktop.focus() == int(self.window), "the focus of the settings")
        self.desktop.key("Escape")
        wait_for(lambda: not self.desktop.windows("^Vellumora Settings$"), "the settings to close")

    def picture(self):
        return self.desktop.run("import", "-window", self.window, "-depth", "8", "rgb:-", binary=True)

    def click_recorder(self):
        self.desktop.xdotool("mousemove", self.x + SCALE * 60, self.y + SCALE * 55, "click", 1)

    def keyboard_held(self):
        return self.desktop.run(HELPERS / "witness", "--keyboard") == "held 1\n"

    def wait_until_held(self):
        wait_for(self.keyboard_held, "the recorder to take the keyboard")

    def wait_until_free(self):
        wait_for(lambda: not self.keyboard_held(), "the keyboard to be free")

    def record(self, keys):
        self.click_recorder()
        self.wait_until_held()
        self.desktop.key(keys)
        self.wait_until_free()

    def stored(self):
        path = self.desktop.home / ".config/Vellumora/Vellumora.conf"
        found = re.search(r'keyCode\D+(\d+)\D+modifiers\D+(\d+)', path.read_text("utf-8")) if path.exists() else None
        return found and tuple(map(int, found.groups()))

    def wait_until_stored(self, key, modifiers):
        wait_for(lambda: self.stored() == (key, modifiers), "the stored shortcut")

    def reddish(self):
        """How many pixels of the line under the recorder are of the colour of a refusal."""
        pixels = self.desktop.pixels((self.x, self.y + SCALE * 70, self.width, SCALE * 25))
        return sum(r > 150 and g < 100 and b < 100 for r, g, b in zip(pixels[::3], pixels[1::3], pixels[2::3]))

    def capture_with(self, keys, presses):
        """The last number says how often the hot key has been heard by then."""
        self.desktop.key(keys)
        self.desktop.wait_for_overlays()
        self.escape()
        self.assertEqual(self.desktop.log().count("atajo pulsado"), presses)

    def test_what_is_recorded_captures_and_nothing_else_does(self):
        self.record("shift+super+x")  # in force already
        self.wait_until_stored(7, SHIFT | SUPER)
        self.capture_with("shift+super+x", 1)
        self.record("ctrl+super+k")
        self.wait_until_stored(40, CTRL | SUPER)
        self.assertEqual(self.reddish(), 0)
        self.desktop.key("shift+super+x")
        self.capture_with("ctrl+super+k", 2)

    def test_what_others_hold_is_refused_in_red(self):
        desktop = self.desktop
        self.record("super+k")
        self.wait_until_stored(40, SUPER)
        Process(desktop, "witness", [HELPERS / "witness", "--grab", "8", "71"]).says("grabbed")
        desktop.run("xset", "r", "rate", "20", "100")
        for presses, key in enumerate(("F4", "F5"), 1):  # the window manager closes windows with Alt+F4
            self.click_recorder()
            self.wait_until_held()
            desktop.xdotool("keydown", "alt", "keydown", key)
            wait_for(lambda: self.reddish() > 50, "the refusal")
            self.assertTrue(all(self.keyboard_held() for _ in range(20)))  # many repetitions long
            desktop.xdotool("keyup", key, "keyup", "alt")
            self.wait_until_free()
            self.assertEqual(desktop.windows("^Vellumora Settings$"), [self.window])
            self.assertEqual(self.stored(), (40, SUPER))
            self.capture_with("super+k", presses)
            self.close()
            self.open()
            wait_for(lambda: self.reddish() == 0, "the hint")

    def test_nothing_is_recorded_after_a_way_out(self):
        desktop = self.desktop
        desktop.witness((2000, 100, 400, 300))
        ways = (lambda: desktop.key("Escape"), self.click_recorder,
                lambda: desktop.xdotool("mousemove", 2200, 250, "click", 1), lambda: self.start_again("--capturar"))
        for leave in ways:
            self.click_recorder()
            self.wait_until_held()
            desktop.key("k")  # alone it is no shortcut
            self.assertTrue(self.keyboard_held())
            leave()
            if leave is ways[-1]:
                desktop.wait_for_overlays()
                self.escape()
            self.wait_until_free()
            desktop.key("ctrl+k")
        self.capture_with("shift+super+x", 1)
        self.assertIsNone(self.stored())

    def test_a_second_start_brings_them_to_the_front_and_they_can_end_the_program(self):
        self.desktop.witness((0, 0, 800, 600))
        self.open()
        self.record("ctrl+q")  # a shortcut like any other
        self.wait_until_stored(12, CTRL)
        self.record("super+k")
        self.wait_until_stored(40, SUPER)
        self.desktop.key("ctrl+q")
        self.assertEqual(self.program.status(), 0)

    def test_the_keyboard_alone_is_enough(self):
        desktop = self.desktop
        wait_for(lambda: len(set(self.picture())) > 10, "the painted window")
        unfocused = self.picture()  # the mark of the focus shows from the first key on
        for _ in range(3):
            before = self.picture()
            desktop.key("Tab")
            wait_for(lambda: self.picture() not in (before, unfocused), "the mark of the focus")
        desktop.key("space")
        self.wait_until_held()
        desktop.key("ctrl+space")
        self.wait_until_stored(49, CTRL)
        self.wait_until_free()
        entry = desktop.home / f".config/autostart/{ID}.desktop"
        desktop.key("Tab", "space")
        wait_for(entry.exists, "the autostart entry")
        desktop.key("space")
        wait_for(lambda: not entry.exists(), "the entry to go")
        self.close()
        self.capture_with("ctrl+space", 1)


if __name__ == "__main__":
    unittest.main()
