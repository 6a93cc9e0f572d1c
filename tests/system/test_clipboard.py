"""What was copied: every reader gets every byte of it, and it outlives the program where a clipboard manager keeps it."""
import signal
import unittest

from case import SystemTest
from desktop import HELPERS, Process, wait_for

SLOWLY = 1500  # milliseconds before each piece
LIMIT = 4  # seconds; the manager has two, the machine may be slow, and Qt alone would wait for five


class Copied(SystemTest):
    # So large that TIFF goes in pieces, because no request to the server holds it.
    monitors = ((0, 0, 3840, 2160), (3840, 0, 400, 300))
    area = (0, 0, 3840, 2160)

    def copy(self):
        """Starts the program and copies the whole large screen."""
        desktop = self.desktop
        desktop.witness(self.area)
        program = desktop.start()
        desktop.xdotool("mousemove", 500, 500)
        desktop.press_shortcut()
        desktop.key("ctrl+a", "Return")
        wait_for(lambda: "copiado 3840x2160" in desktop.log(), "the copy")
        desktop.wait_until_over()
        return program

    def reader(self, kind, name, delay=0):
        path = self.desktop.folder / name
        return Process(self.desktop, name, [HELPERS / "clipboard", "--read", f"image/{kind}", path, str(delay)]), path

    def test_readers_at_once_and_a_slow_one_get_every_byte(self):
        desktop = self.desktop
        self.copy()
        slow, slowly = self.reader("tiff", "slow", SLOWLY)
        others = [self.reader(kind, f"{kind}-{i}") for i in range(3) for kind in ("png", "tiff")]
        for process, _ in [*others, (slow, slowly)]:
            self.assertEqual(process.status(), 0)
        self.assertGreater(int(slow.says("pieces").split()[1]), 1)
        wanted = desktop.pixels(self.area)
        first, second = others[0][1], others[1][1]
        for picture, kind in ((first, "png"), (second, "tiff")):
            self.assert_same_pixels(desktop.pixels_of(f"{kind}:{picture}"), wanted)
        self.assertEqual({path.read_bytes() == first.read_bytes() for process, path in others[::2]}, {True})
        self.assertEqual({path.read_bytes() == second.read_bytes() for process, path in others[1::2]}, {True})
        self.assertTrue(slowly.read_bytes() == second.read_bytes())

    def test_a_manager_keeps_every_byte_when_the_program_ends(self):
        desktop = self.desktop
        kept = desktop.folder / "kept"
        kept.mkdir()
        manager = Process(desktop, "manager", [HELPERS / "clipboard", "--manage", kept])
        manager.says("manages")
        program = self.copy()
        pictures = {}
        for kind in ("png", "tiff"):
            process, path = self.reader(kind, kind)
            self.assertEqual(process.status(), 0)
            pictures[kind] = path.read_bytes()
        program.process.send_signal(signal.SIGTERM)
        self.assertEqual(program.status(), 0)
        self.assertEqual(program.lines(), [])
        self.assertEqual(manager.lines()[1:], ["asked 1", "saved 2"])  # once: what is asked for again may come to nothing
        for kind, picture in pictures.items():
            self.assertTrue((kept / kind).read_bytes() == picture, kind)

    def test_a_manager_that_hangs_does_not_hold_up_the_end(self):
        manager = Process(self.desktop, "manager", [HELPERS / "clipboard", "--manage"])
        manager.says("manages")
        program = self.copy()
        program.process.send_signal(signal.SIGTERM)
        manager.says("asked")
        wait_for(lambda: not program.running(), "the end", patience=LIMIT)
        self.assertEqual(program.status(), 0)


if __name__ == "__main__":
    unittest.main()
