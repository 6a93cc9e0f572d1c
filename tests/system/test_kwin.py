"""The main job on KWin: its pictures over the message bus, its windows, its shortcuts."""
import unittest

from session import Process, wait_for
from wayland_case import Drawing, MainJob, WaylandTest
from wayland_desktop import pattern
from wayland_kwin import A, B, KWin

SHIFT_META_X = 0x02000000 | 0x10000000 | 0x58


class KWinTest(WaylandTest):
    # KWin moves an injected pointer by whole points, so no region of the first output has odd pixels here.
    odd_area = (102, 204, 402, 404)

    def make_desktop(self):
        return KWin()

    def park(self, output):
        """In the middle of what is copied: KWin leaves the pointer out of its pictures."""
        self.desktop.move_to((300, 300), output)


class OnTwoOutputs(MainJob, Drawing, KWinTest):
    def test_an_output_that_goes_ends_the_capture(self):
        desktop = self.desktop
        program = self.start()
        desktop.capture()
        desktop.run("kscreen-doctor", "output.2.disable")
        wait_for(lambda: not desktop.frozen(A), "the end of the capture")
        desktop.run("kscreen-doctor", "output.2.enable")
        desktop.arrange()
        wait_for(lambda: desktop.shows_pattern(B), "the second output")
        desktop.capture()
        self.escape()
        self.assertTrue(program.running())
        self.assertEqual(program.lines(), [])

    def test_the_desktop_tells_of_the_shortcut(self):
        desktop = self.desktop
        self.start()
        self.assertIn("registro de atajo ⇧⌘X -> OK", desktop.log())
        self.park(A)
        for presses in (1, 3):
            desktop.key("shift+super+x")
            desktop.wait_for_overlays()
            if presses == 1:
                desktop.key("shift+super+x")  # heard, but nothing happens while a capture is in progress
                wait_for(lambda: desktop.log().count("atajo pulsado") == 2, "the second press")
            self.escape()
            self.assertEqual(desktop.log().count("atajo pulsado"), presses + (presses == 1))

    def test_a_shortcut_that_another_program_has_is_not_taken_from_it(self):
        desktop = self.desktop
        call = ("gdbus", "call", "--session", "-d", "org.kde.kglobalaccel", "-o", "/kglobalaccel", "-m")
        other = "['other', 'do', 'Other', 'Do']"
        desktop.run(*call, "org.kde.KGlobalAccel.doRegister", other)
        granted = desktop.run(*call, "org.kde.KGlobalAccel.setShortcut", other, f"[{SHIFT_META_X}]", "6")
        self.assertIn(str(SHIFT_META_X), granted)
        desktop.start()
        self.assertIn("registro de atajo ⇧⌘X -> FALLO", desktop.log())


class Windows(KWinTest):
    def spot_without_pattern(self, output):
        """A pixel at which another window lies over the witness of the output."""
        picture = self.desktop.look(output)
        spots = ((x, y) for y in range(8, output.height, 64) for x in range(8, output.width, 64))
        return next((spot for spot in spots if picture.crop((*spot, 1, 1)) != pattern((*spot, 1, 1))), None)

    def test_a_double_click_copies_the_topmost_window(self):
        desktop = self.desktop
        self.start()
        self.park(A)
        Process(desktop, "witness", [desktop.helpers / "wayland-witness", A.name])
        spot = wait_for(lambda: self.spot_without_pattern(A), "a window over the witness")
        for output, place, size in ((A, spot, (600, 400)), (B, (401, 401), (B.width, B.height))):
            with self.subTest(output=output.name):
                self.park(output)
                desktop.capture()
                desktop.click(place, output)
                desktop.click(place, output)
                self.copy("Return", size)
                # What a witness shows begins in its own corner.
                self.assert_same_pixels(desktop.pixels_of(desktop.clipboard("png"), (0, 0, 600, 400)), pattern((0, 0, 600, 400)))
        loaded = desktop.run("gdbus", "introspect", "--session", "-d", "org.kde.KWin", "-o", "/", "-r")
        self.assertIn("org.kde.kwin.Scripting", loaded)
        self.assertNotIn("org.kde.kwin.Script ", loaded)


if __name__ == "__main__":
    unittest.main()
