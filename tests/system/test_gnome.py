"""The main job on GNOME: pictures from the desktop's own portal, overlays as full-screen windows. One short pass, because the shell
takes its time."""
import signal
import unittest

from session import wait_for
from wayland_case import MainJob, WaylandTest
from wayland_desktop import pattern
from wayland_gnome import A, Gnome


class GnomeTest(WaylandTest):
    other_save = "ctrl+s"  # the shell keeps what is pressed with Super to itself
    answer = "yes"

    def make_desktop(self):
        desktop = Gnome()
        desktop.permit(self.answer)
        return desktop


class OnTwoOutputs(MainJob, GnomeTest):
    def test_nothing_is_left_of_the_portals_picture_and_the_end_is_in_order(self):
        desktop = self.desktop
        program = self.start()
        desktop.capture()
        self.assertEqual(list((desktop.home / "Pictures").iterdir()), [])
        desktop.compositor.process.send_signal(signal.SIGKILL)
        self.assertEqual(program.status(), 1)
        self.assertLessEqual(len(program.lines()), 2)  # Qt and its library may both say so


class Refused(GnomeTest):
    answer = "no"

    def test_who_has_said_no_gets_the_alert_and_is_not_asked_again(self):
        desktop = self.desktop
        self.start()
        place = (200, 300, 40, 40)  # the shell puts it into the corner
        for _ in range(2):
            self.assertEqual(desktop.start("--capturar").status(), 0)
            wait_for(lambda: any(desktop.pixels(output, place) != pattern(place) for output in self.outputs), "the alert")
            self.assertFalse(desktop.frozen(A))
            desktop.key("Escape")
            wait_for(lambda: all(desktop.pixels(output, place) == pattern(place) for output in self.outputs), "its end")


if __name__ == "__main__":
    unittest.main()
