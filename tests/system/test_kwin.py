"""The main job on KWin: its pictures over the message bus, its own registry of shortcuts, its permissions."""
import unittest

from session import wait_for
from wayland_case import MainJob, WaylandTest
from wayland_kwin import KWin


class KWinTest(WaylandTest):
    def make_desktop(self):
        return KWin()


class OnTwoOutputs(MainJob, KWinTest):
    pass


if __name__ == "__main__":
    unittest.main()
