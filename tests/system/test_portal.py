"""Where KWin refuses to give its pictures the portal is asked; and what a portal may do to a program."""
import unittest

from session import PATIENCE, wait_for
from test_kwin import KWinTest
from wayland_desktop import pattern
from wayland_kwin import A, B, KWin


class WithoutPermission(KWinTest):
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
        truncated = pictures / "truncated.png"
        truncated.write_bytes(good[:len(good) // 2])
        answers = ["refused", "nothing", f"file://{truncated}"]
        portal = desktop.portal(*answers, f"file://{whole}")
        for i, answer in enumerate(answers, 1):
            with self.subTest(answer=answer):
                self.ask()
                wait_for(lambda: portal.lines().count("asked") == i, "the request")
                self.wait_for_alert()
                self.dismiss()
        desktop.capture()
        self.escape()
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
        self.escape()


if __name__ == "__main__":
    unittest.main()
