"""Regions made, corrected and found again by real keys."""
import unittest

from case import SystemTest
from desktop import wait_for


class Regions(SystemTest):
    window_manager = "openbox"

    def setUp(self):
        super().setUp()
        desktop = self.desktop
        desktop.witness((0, 0, 3520, 900))
        desktop.start()
        self.screen = desktop.screenshot()

    def assert_copied(self, area):
        desktop = self.desktop
        desktop.key("Return")
        wait_for(lambda: f"copiado {area[2]}x{area[3]} " in desktop.log(), "the copy")
        desktop.wait_until_over()
        self.assert_same_pixels(desktop.pixels_of(desktop.clipboard("png")), desktop.pixels_of(self.screen, area))

    def test_the_keyboard_alone_makes_a_region_and_brings_it_back(self):
        desktop = self.desktop
        desktop.xdotool("mousemove", 400, 400)
        desktop.press_shortcut()
        desktop.key("Right", *["alt+shift+Right"] * 5, *["alt+Down"] * 3)  # from 40 x 40 pixels
        desktop.key("Tab")
        desktop.key("Tab")  # in the same millisecond it would look like a repetition
        desktop.key("alt+ctrl+Up", *["ctrl+Left"] * 3)
        self.assert_copied((397, 399, 140, 47))
        desktop.press_shortcut()
        desktop.key("space", "shift+Down")
        self.assert_copied((397, 419, 140, 47))

    def test_space_carries_a_region_while_it_is_dragged_out(self):
        desktop = self.desktop
        desktop.run("xset", "r", "rate", "20", "100")  # a held key repeats itself
        desktop.xdotool("mousemove", 2000, 100)
        desktop.press_shortcut()
        desktop.xdotool("mousedown", 1, "mousemove", 2200, 250)
        desktop.xdotool("keydown", "space", "sleep", 0.1)
        for x in range(2200, 2301, 20):
            desktop.xdotool("mousemove", x, 300, "sleep", 0.01)
        desktop.xdotool("keyup", "space", "sleep", 0.1, "mousemove", 2400, 400, "mouseup", 1)
        self.assert_copied((2100, 150, 300, 250))

    def test_the_colour_under_the_loupe_is_copied_as_text(self):
        desktop = self.desktop
        self.select((2000, 100, 200, 150))
        desktop.key("i")
        desktop.xdotool("mousemove", 2333, 444)
        desktop.key("ctrl+c")
        red, green, blue = desktop.pixels_of(self.screen, (2333, 444, 1, 1))
        wait_for(lambda: desktop.run("timeout", "5", "xclip", "-selection", "clipboard", "-o") == f"#{red:02X}{green:02X}{blue:02X}",
                 "the colour")
        self.assert_copied((2000, 100, 200, 150))


if __name__ == "__main__":
    unittest.main()
