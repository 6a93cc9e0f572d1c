"""A double click selects the window that was under the pointer when the screens froze."""
import re
import unittest

from case import SystemTest
from desktop import wait_for

EVERYTHING = (0, 0, 3520, 1200)


class WindowTest(SystemTest):
    def frame_of(self, window):
        """Where its outermost frame is on the root window, by the server's own words."""
        while True:
            tree = self.desktop.run("xwininfo", "-tree", "-id", str(window))
            root, parent = (int(re.search(rf"{name} window id: (0x\w+)", tree)[1], 16) for name in ("Root", "Parent"))
            if parent == root:
                break
            window = parent
        facts = self.desktop.run("xwininfo", "-id", str(window))
        return tuple(int(re.search(rf"{name}: +(-?\d+)", facts)[1]) for name in
                     ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))

    def set(self, window, name, form, value):
        self.desktop.run("xprop", "-id", str(window), "-f", name, form, "-set", name, value)

    def framed_witness(self, place):
        """A window with title bar and borders."""
        _, window = self.desktop.witness(place)
        self.desktop.run("xprop", "-id", str(window), "-remove", "_MOTIF_WM_HINTS")
        wait_for(lambda: self.frame_of(window)[2] > place[2], "the frame of the witness")
        return window

    def freeze_and_double_click(self, pixel):
        desktop = self.desktop
        desktop.pixels_at_rest(EVERYTHING)
        screen = desktop.screenshot()
        desktop.xdotool("mousemove", *pixel)
        desktop.press_shortcut()
        desktop.xdotool("click", "--repeat", 2, "--delay", 50, 1)
        desktop.key("ctrl+c", "Escape")
        desktop.wait_until_over()
        return screen

    def assert_copies(self, pixel, area, screen=None):
        """That a double click there copies this area as it was, then or in an earlier picture."""
        desktop = self.desktop
        copies = desktop.log().count("copiado")
        now = self.freeze_and_double_click(pixel)
        wait_for(lambda: desktop.log().count("copiado") > copies, "the copy")
        self.assertIn(f"copiado {area[2]}x{area[3]} ", [line for line in desktop.log().splitlines() if "copiado" in line][-1])
        self.assert_same_pixels(desktop.pixels_of(desktop.clipboard("png")), desktop.pixels_of(screen or now, area))

    def assert_selects_nothing(self, pixel):
        copies = self.desktop.log().count("copiado")
        self.freeze_and_double_click(pixel)
        self.assertEqual(self.desktop.log().count("copiado"), copies)


class WithOpenbox(WindowTest):
    window_manager = "openbox"

    def test_the_topmost_window_is_copied_with_its_frame(self):
        desktop = self.desktop
        low = self.framed_witness((201, 203, 901, 603))
        high = self.framed_witness((703, 501, 801, 401))
        desktop.start()
        frame = self.frame_of(low)
        self.assertTrue(any(number % 2 for number in frame), frame)  # with two pixels a point
        title = (frame[0] + 4, frame[1] + 4)
        self.assert_copies(title, frame)
        self.assert_copies((801, 601), self.frame_of(high))  # where both are
        desktop.xdotool("windowraise", low)
        self.assert_copies((801, 601), frame)
        self.assert_selects_nothing((frame[0] - 1, frame[1] + 4))

    def test_a_window_on_both_screens_is_cut_off_at_their_edge(self):
        desktop = self.desktop
        window = self.framed_witness((1601, 203, 701, 403))
        desktop.start()
        x, y, width, height = self.frame_of(window)
        self.assert_copies((1700, 400), (x, y, 1920 - x, height))
        self.assert_copies((2000, 400), (1920, y, x + width - 1920, height))

    def test_what_does_not_show_and_what_is_no_window_is_left_out(self):
        desktop = self.desktop
        window = self.framed_witness((201, 203, 901, 603))
        _, other = desktop.witness((301, 303, 401, 303))
        desktop.pixels_at_rest(EVERYTHING)
        screen = desktop.screenshot()
        desktop.start("--ajustes")
        (settings,) = wait_for(lambda: desktop.windows("^Vellumora Settings$"), "the settings")
        desktop.xdotool("windowmove", settings, 351, 353)
        at = (451, 453)
        wait_for(lambda: self.frame_of(int(settings))[0] < at[0], "the settings over the others")
        self.assert_copies(at, (301, 303, 401, 303), screen)
        desktop.xdotool("windowclose", settings)
        desktop.xdotool("windowminimize", other)
        self.assert_copies(at, self.frame_of(window))
        desktop.xdotool("windowmap", other, "windowraise", other)
        self.assert_copies(at, (301, 303, 401, 303))
        desktop.xdotool("set_num_desktops", 2, "set_desktop_for_window", other, 1)
        self.assert_copies(at, self.frame_of(window))
        for kind in ("DOCK", "DESKTOP"):
            self.set(window, "_NET_WM_WINDOW_TYPE", "32a", f"_NET_WM_WINDOW_TYPE_{kind}")
            self.assert_selects_nothing(at)

    def test_a_shadow_that_a_window_draws_itself_is_no_part_of_it(self):
        desktop = self.desktop
        _, window = desktop.witness((301, 303, 401, 303))
        self.set(window, "_GTK_FRAME_EXTENTS", "32c", "21,23,11,31")
        desktop.start()
        self.assert_copies((500, 500), (322, 314, 357, 261))
        self.assert_selects_nothing((310, 400))


class WithoutWindowManager(WindowTest):
    def test_the_servers_own_order_counts(self):
        desktop = self.desktop
        _, low = desktop.witness((201, 203, 901, 603))
        desktop.witness((301, 303, 401, 303))
        desktop.start()
        self.assert_copies((451, 453), (301, 303, 401, 303))
        desktop.xdotool("windowraise", low)
        self.assert_copies((451, 453), (201, 203, 901, 603))
        self.assert_selects_nothing((200, 300))


if __name__ == "__main__":
    unittest.main()
