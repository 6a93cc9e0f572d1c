"""The main job with real input: shortcut, drag, copy, and everything as it was before."""
import subprocess
import unittest

from case import SystemTest
from desktop import A, B, wait_for


class MainJob:
    """Runs under every window manager below."""

    def test_a_region_of_every_screen_is_copied_pixel_for_pixel(self):
        desktop = self.desktop
        _, window = desktop.witness((0, 0, 3520, 900))
        desktop.start()
        screen = desktop.screenshot()
        # The last one has odd pixels on the screen with two pixels a point.
        for area in ((2120, 100, 400, 300), (100, 200, 400, 400), (101, 203, 401, 403)):
            self.select(area)
            before = desktop.log().count("copiado")
            desktop.key("Return")
            wait_for(lambda: desktop.log().count("copiado") > before, "the copy")
            self.assertIn(f"copiado {area[2]}x{area[3]} png=", desktop.log())
            wanted = desktop.pixels_of(screen, area)
            desktop.wait_until_over()
            for kind in ("png", "tiff"):
                self.assert_same_pixels(desktop.pixels_of(desktop.clipboard(kind)), wanted)
            self.assertEqual(desktop.focus(), window)

    def test_both_screens_freeze_dimmed_and_escape_gives_them_back(self):
        desktop = self.desktop
        witness, window = desktop.witness((0, 0, 3520, 900))
        desktop.start()
        before = desktop.screenshot()
        desktop.xdotool("mousemove", 2400, 500)
        desktop.press_shortcut()
        for area in ((300, 300, 200, 50), (2300, 100, 200, 50)):
            dimmed = [round(value * 0.55) for value in desktop.pixels_of(before, area)]
            self.assertLess(max(abs(a - b) for a, b in zip(dimmed, desktop.pixels(area))), 4)
        desktop.key("shift+super+x")  # nothing happens while a capture is in progress
        desktop.key("a")
        self.assertEqual(len(desktop.overlays()), 2)
        self.escape()
        self.assertEqual(desktop.focus(), window)
        desktop.key("b")
        witness.says("key 56")  # b arrives
        self.assertNotIn("key 38", witness.lines())  # a did not
        desktop.press_shortcut()
        self.assertEqual(desktop.log().count("atajo pulsado"), 3)
        self.escape()

    def test_a_selection_on_one_screen_clears_the_other(self):
        desktop = self.desktop
        desktop.witness((0, 0, 3520, 900))
        desktop.start()
        desktop.xdotool("mousemove", 2400, 500)
        desktop.press_shortcut()
        probe = (2250, 250, 40, 40)
        dimmed = desktop.pixels(probe)
        desktop.drag((2120, 100), (2520, 400))
        wait_for(lambda: desktop.pixels(probe) != dimmed, "a bright selection")
        desktop.drag((100, 100), (300, 300))
        wait_for(lambda: desktop.pixels(probe) == dimmed, "the other selection to go")
        desktop.key("ctrl+c")  # the keys followed the selection
        wait_for(lambda: "copiado 200x200" in desktop.log(), "the copy")
        desktop.wait_until_over()

    def test_the_own_settings_window_is_not_in_the_picture(self):
        desktop = self.desktop
        desktop.witness((2120, 100, 800, 600), 150)  # slow to repaint what the settings have covered
        screen = desktop.screenshot()
        desktop.start("--ajustes")
        (settings,) = wait_for(lambda: desktop.windows("^Vellumora Settings$"), "the settings")
        desktop.xdotool("windowmove", settings, 2300, 250)
        wait_for(lambda: desktop.pixels_of(desktop.screenshot(), (2120, 100, 800, 600))
                 != desktop.pixels_of(screen, (2120, 100, 800, 600)), "the settings over the witness")
        wait_for(lambda: desktop.focus() == int(settings), "the focus of the settings")
        self.select((2120, 100, 800, 600))
        desktop.key("Return")
        wait_for(lambda: "copiado 800x600" in desktop.log(), "the copy")
        desktop.wait_until_over()
        self.assert_same_pixels(desktop.pixels_of(desktop.clipboard("png")),
                                desktop.pixels_of(screen, (2120, 100, 800, 600)))
        wait_for(lambda: desktop.windows("^Vellumora Settings$"), "the settings to come back")
        wait_for(lambda: desktop.focus() == int(settings), "the focus of the settings")

    def test_saving_from_the_panel_above_the_overlay(self):
        desktop = self.desktop
        _, window = desktop.witness((0, 0, 3520, 900))
        desktop.start()
        screen = desktop.screenshot()
        self.select((2120, 100, 200, 150))
        middle = (2600, 300, 60, 60)  # where the panel comes up
        dimmed = desktop.pixels(middle)
        desktop.key("ctrl+s")
        wait_for(lambda: desktop.pixels(middle) != dimmed, "the panel")
        desktop.key("Escape")
        wait_for(lambda: desktop.pixels(middle) == dimmed, "the panel to go")
        self.assertEqual(len(desktop.overlays()), 2)
        desktop.key("super+s")
        wait_for(lambda: desktop.pixels(middle) != dimmed, "the panel again")
        desktop.key("ctrl+a")
        desktop.type("region")
        desktop.key("Return")
        desktop.wait_until_over()
        saved = desktop.home / "Pictures/region.png"
        self.assert_same_pixels(desktop.pixels_of(saved), desktop.pixels_of(screen, (2120, 100, 200, 150)))
        self.assertEqual(desktop.focus(), window)


class WithOpenbox(MainJob, SystemTest):
    window_manager = "openbox"

    def test_printing_after_the_overlays_have_gone(self):
        desktop = self.desktop
        _, window = desktop.witness((0, 0, 3520, 900))
        desktop.start()
        screen = desktop.screenshot()
        self.select((2120, 100, 200, 150))
        desktop.key("ctrl+p")
        desktop.wait_until_over()
        (dialog,) = wait_for(lambda: desktop.windows("^Print$"), "the print dialog")
        wait_for(lambda: desktop.focus() == int(dialog), "the focus of the dialog")
        desktop.key("Return")
        paper = desktop.home / "Vellumora.pdf"
        wait_for(lambda: desktop.focus() == window, "the focus of the witness again")
        wait_for(lambda: paper.exists() and paper.read_bytes().rstrip().endswith(b"%%EOF"), "the paper")
        subprocess.run(["pdfimages", "-png", str(paper), str(desktop.folder / "paper")], check=True)
        self.assert_same_pixels(desktop.pixels_of(desktop.folder / "paper-000.png"),
                                desktop.pixels_of(screen, (2120, 100, 200, 150)))


class WithoutWindowManager(MainJob, SystemTest):
    pass


class WithFractionalScales(SystemTest):
    # 1366 pixels are no whole number of points.
    monitors = ((0, 0, 1366, 768), (1366, 0, 1600, 900))
    scales = (1.5, 1.25)

    def test_every_pixel_is_covered_and_copied(self):
        desktop = self.desktop
        desktop.witness((0, 0, 2966, 768))
        desktop.start()
        screen = desktop.screenshot()
        for area in ((101, 203, 301, 203), (1500, 101, 333, 77)):
            x, y, width, height = area
            desktop.xdotool("mousemove", x, y)
            desktop.press_shortcut()
            for corner in ((1364, 0, 2, 2), (0, 766, 2, 2), (2964, 0, 2, 2)):
                before = desktop.pixels_of(screen, corner)
                self.assertLess(max(abs(round(a * 0.55) - b) for a, b in zip(before, desktop.pixels(corner))), 4)
            desktop.drag((x, y), (x + width, y + height))
            desktop.key("Return")
            wait_for(lambda: f"copiado {width}x{height} " in desktop.log(), "the copy")
            desktop.wait_until_over()
            self.assert_same_pixels(desktop.pixels_of(desktop.clipboard("png")), desktop.pixels_of(screen, area))


class WithoutSharedMemory(SystemTest):
    server_options = ("-extension", "MIT-SHM")

    def test_the_screen_is_read_through_the_socket(self):
        desktop = self.desktop
        desktop.witness((0, 0, 3520, 900))
        desktop.start()
        screen = desktop.screenshot()
        self.select((100, 200, 200, 100))
        desktop.key("Return")
        desktop.wait_until_over()
        self.assert_same_pixels(desktop.pixels_of(desktop.clipboard("png")),
                                desktop.pixels_of(screen, (100, 200, 200, 100)))


if __name__ == "__main__":
    unittest.main()
