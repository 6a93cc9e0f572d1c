"""What the system tests have in common."""
import unittest

from desktop import A, B, Desktop


class PictureTest(unittest.TestCase):
    def assert_same_pixels(self, got, wanted):
        """Without a flood of bytes when they differ."""
        self.assertTrue(len(got) > 0 and got == wanted,
                        f"{len(got)} bytes of pixels, {len(wanted)} wanted, {sum(a != b for a, b in zip(got, wanted))} differ")

    def escape(self):
        """Leaves the capture, and returns when the screens are free again."""
        self.desktop.key("Escape")
        self.desktop.wait_until_over()


class SystemTest(PictureTest):
    window_manager = None
    bus = False
    server_options = ()
    monitors = (A, B)
    scales = (2, 1)

    def setUp(self):
        self.desktop = Desktop(self.window_manager, self.bus, self.server_options, self.monitors, self.scales)
        self.addCleanup(self.desktop.close)

    def select(self, area):
        """Freezes the screens with the pointer where the area begins, and drags it out."""
        x, y, width, height = area
        self.desktop.xdotool("mousemove", x, y)
        self.desktop.press_shortcut()
        self.desktop.drag((x, y), (x + width, y + height))
