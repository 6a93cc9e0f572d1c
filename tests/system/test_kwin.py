"""The main job on KWin: its pictures over the message bus, its permissions and the portal where it refuses, its shortcuts."""
import signal
import unittest

from session import PATIENCE, Process, wait_for
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
        desktop.key("Escape")
        desktop.wait_until_over()
        self.assertTrue(program.running())
        self.assertEqual(program.lines(), [])

    def test_without_the_compositor_it_ends_in_order(self):
        desktop = self.desktop
        program = desktop.start()
        desktop.capture()
        desktop.compositor.process.send_signal(signal.SIGKILL)
        self.assertEqual(program.status(), 1)
        self.assertLessEqual(len(program.lines()), 2)  # Qt and its library may both say so

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
            desktop.key("Escape")
            desktop.wait_until_over()
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


class WithoutPermission(KWinTest):
    """KWin refuses, so the portal is asked; and what a portal may do to a program."""

    def make_desktop(self):
        return KWin(granted=False)

    def setUp(self):
        super().setUp()
        tools = self.desktop.folder / "tools"
        tools.mkdir()
        self.opened = self.desktop.folder / "opened"
        for name in ("systemsettings", "xdg-open"):
            (tools / name).write_text(f"#!/bin/sh\necho {name} $* >> {self.opened}\n", "utf-8")
            (tools / name).chmod(0o755)
        self.desktop.environment["PATH"] = f"{tools}:{self.desktop.environment['PATH']}"
        self.middle = (A.width // 2 - 20, A.height // 2 - 20, 40, 40)

    def ask(self):
        self.assertEqual(self.desktop.start("--capturar").status(), 0)

    def wait_for_alert(self, patience=PATIENCE):
        wait_for(lambda: any(self.desktop.pixels(output, self.middle) != pattern(self.middle) for output in (A, B)),
                 "the alert", patience)
        for output in (A, B):
            self.assertFalse(self.desktop.frozen(output))

    def dismiss(self):
        self.desktop.key("Escape")
        for output in (A, B):
            wait_for(lambda: self.desktop.pixels(output, self.middle) == pattern(self.middle), "the alert to go")

    def picture(self):
        """The desktop as KDE's portal would make it: in the larger of the two scales."""
        for output in (A, B):
            picture = self.desktop.look(output)
            (self.desktop.folder / f"{output.name}.ppm").write_bytes(
                b"P6 %d %d 255\n" % (picture.width, picture.height) + picture.bytes)
        path = self.desktop.home / "Pictures/portal.png"
        self.desktop.run("convert", "-size", "4800x2000", "xc:black", str(self.desktop.folder / f"{A.name}.ppm"), "-composite",
                         "(", str(self.desktop.folder / f"{B.name}.ppm"), "-scale", "200%", ")", "-geometry", "+1600+0",
                         "-composite", f"png24:{path}")
        return path

    def test_without_a_portal_the_alert_leads_to_the_settings(self):
        self.start()
        self.ask()
        self.wait_for_alert()
        self.desktop.key("Return")
        wait_for(self.opened.exists, "the settings")
        self.assertRegex(self.opened.read_text("utf-8"), "^(systemsettings kcm_|xdg-open https://)")

    def test_the_portals_picture_is_cut_and_its_file_deleted(self):
        desktop = self.desktop
        self.start()
        desktop.move_to((1500, 900))
        path = self.picture()
        portal = desktop.portal("cancelled", f"file://{path}")
        self.ask()
        portal.says("asked")
        self.wait_for_alert()
        self.dismiss()
        area = (100, 200, 400, 300)
        self.select(A, area)
        self.copy("Return", area[2:])
        self.assert_same_pixels(desktop.pixels_of(desktop.clipboard("png")), pattern(area))
        self.assertFalse(path.exists())

    def test_whatever_the_portal_answers_there_is_an_alert_and_another_chance(self):
        desktop = self.desktop
        program = self.start()
        pictures = desktop.home / "Pictures"
        whole = self.picture()
        good = whole.read_bytes()
        (pictures / "truncated.png").write_bytes(good[:len(good) // 2])
        (pictures / "empty.png").write_bytes(b"")
        (pictures / "text.png").write_text("no picture", "utf-8")
        desktop.run("convert", "-size", "300x200", "xc:gray", str(pictures / "small.png"))
        answers = ["refused", "nothing", "file:///nowhere/picture.png", "https://example.invalid/picture.png",
                   *(f"file://{pictures}/{name}.png" for name in ("truncated", "empty", "text", "small"))]
        portal = desktop.portal(*answers, f"file://{whole}")
        for i, answer in enumerate(answers, 1):
            with self.subTest(answer=answer):
                self.ask()
                wait_for(lambda: portal.lines().count("asked") == i, "the request")
                self.wait_for_alert()
                self.dismiss()
        desktop.capture()
        desktop.key("Escape")
        desktop.wait_until_over()
        self.assertTrue(program.running())

    def test_a_portal_that_dies_or_is_silent_does_not_hold_up_the_next_request(self):
        desktop = self.desktop
        self.start()
        desktop.portal("dead")
        self.ask()
        self.wait_for_alert()
        self.dismiss()
        whole = self.picture()
        portal = desktop.portal("silent", f"file://{whole}")
        self.ask()
        portal.says("asked")
        self.ask()  # the first one is still waited for
        self.wait_for_alert(patience=45)
        self.assertEqual(portal.lines().count("asked"), 1)
        self.dismiss()
        desktop.capture()
        desktop.key("Escape")
        desktop.wait_until_over()


if __name__ == "__main__":
    unittest.main()
