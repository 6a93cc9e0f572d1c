"""The main job on sway: pictures by the compositor's own copy, overlays on its layer above everything."""
import signal
import subprocess
import unittest

import wayland_sway
from session import ID, Process, wait_for
from wayland_case import Drawing, MainJob, WaylandTest
from wayland_desktop import Output, pattern
from wayland_sway import A, B, Sway


class SwayTest(WaylandTest):
    def make_desktop(self):
        return Sway()


class OnTwoOutputs(MainJob, Drawing, SwayTest):
    def test_escape_leaves_fifty_times_of_fifty(self):
        desktop = self.desktop
        program = self.start()
        for round_ in range(50):
            output = self.outputs[round_ % 2]
            self.park(output)
            desktop.capture()
            self.escape()
        self.assertTrue(program.running())
        self.assertEqual(program.lines(), [])

    def test_an_output_that_comes_ends_the_capture(self):
        # A sway without a screen cannot switch one off; that one goes is tested on KWin.
        desktop = self.desktop
        program = self.start()
        desktop.capture()
        desktop.tell("create_output")
        desktop.wait_until_over()
        desktop.outputs = (A, B, Output("HEADLESS-3", 1920, 1080, 1))
        desktop.capture()
        self.escape()
        self.assertTrue(program.running())
        self.assertEqual(program.lines(), [])

    def test_without_the_compositor_it_ends_in_order(self):
        for frozen in (True, False):
            desktop = Sway()
            self.addCleanup(desktop.close)
            program = desktop.start()
            if frozen:
                desktop.capture()
            desktop.compositor.process.send_signal(signal.SIGKILL)
            self.assertEqual(program.status(), 1)
            self.assertLessEqual(len(program.lines()), 2)  # Qt and its library may both say so

    def test_the_clipboard_answers_slow_partial_and_parallel_readers(self):
        desktop = self.desktop
        program = self.start()
        area = (100, 100, 1600, 1000)
        self.select(A, area)
        self.copy("Return", area[2:])
        paste = [*desktop.prefix, "timeout", "10", "wl-paste", "-t", "image/tiff"]
        pipe = {"env": desktop.environment, "stdout": subprocess.PIPE}
        readers = [subprocess.Popen(paste, **pipe) for _ in range(3)]
        readers[0].stdout.read(1000)  # and no more for a while
        readers[1].stdout.close()  # goes away in the middle
        readers[1].wait()
        whole = readers[2].communicate()[0]
        self.assert_same_pixels(desktop.pixels_of(desktop.clipboard("png")), pattern(area))
        rest = readers[0].communicate()[0]
        self.assertEqual(len(whole) - 1000, len(rest))
        self.assertEqual(whole[1000:], rest)
        self.assertTrue(program.running())


    def test_printing_after_the_overlays_have_gone(self):
        desktop = self.desktop
        self.start()
        area = (200, 100, 200, 150)
        self.select(B, area)
        middle = (B.width // 2 - 20, B.height // 2 - 20, 40, 40)
        desktop.key("ctrl+p")
        desktop.wait_until_over()
        wait_for(lambda: desktop.pixels(B, middle) != pattern(middle) or desktop.pixels(A, middle) != pattern(middle), "the dialog")
        desktop.key("Return")
        paper = desktop.home / "Vellumora.pdf"
        wait_for(lambda: paper.exists() and paper.read_bytes().rstrip().endswith(b"%%EOF"), "the paper")
        subprocess.run(["pdfimages", "-png", str(paper), str(desktop.folder / "paper")], check=True)
        self.assert_same_pixels(desktop.pixels_of(desktop.folder / "paper-000.png"), pattern(area))


class Windows(SwayTest):
    def test_a_double_click_copies_the_topmost_window_with_its_title_bar(self):
        desktop = self.desktop
        self.start()
        desktop.tell("workspace 1")
        Process(desktop, "witness", [desktop.helpers / "wayland-witness", A.name]).says("keyboard 1")
        for command in ("floating enable", "border normal", "resize set 401 233", "move position 101 77"):
            desktop.tell(command)
        # In the middle of the floating window, beside it, and on the other output.
        for output, place, area in ((A, (500, 400), (202, 154, 802, 466)), (A, (150, 900), (0, 0, 1920, 1200)),
                                    (B, (500, 400), (0, 0, 1600, 900))):
            with self.subTest(output=output.name, area=area):
                self.park(output)
                self.at_rest(output, area)
                screen = desktop.pixels(output, area)
                desktop.capture()
                desktop.click(place, output)
                desktop.click(place, output)
                self.copy("Return", area[2:])
                self.assert_same_pixels(desktop.pixels_of(desktop.clipboard("png")), screen)


class OnABus(SwayTest):
    def make_desktop(self):
        return Sway(bus=True)

    def test_the_icon_of_the_tray_captures(self):
        desktop = self.desktop
        self.start()
        panel = Process(desktop, "panel", [desktop.helpers / "panel"])  # later than the program
        item = panel.says("item").split()[1]
        # A left click: a menu of ours would be a window like any other.
        desktop.run("gdbus", "call", "--session", "-d", item, "-o", "/StatusNotifierItem", "-m",
                    "org.kde.StatusNotifierItem.Activate", "--", "0", "0")
        desktop.wait_for_overlays()
        self.escape()


class Turned(SwayTest):
    def make_desktop(self):
        return Sway((A, wayland_sway.ROTATED))

    def test_a_turned_output_is_copied_upright(self):
        desktop = self.desktop
        self.start()
        output = desktop.outputs[1]
        area = (201, 103, 333, 77)
        self.select(output, area)
        self.copy("Return", area[2:])
        self.assert_same_pixels(desktop.pixels_of(desktop.clipboard("png")), pattern(area))


class FromTheKeyboard(SwayTest):
    def make_desktop(self):
        return Sway(bindings=[("Shift+Mod4+x", "{program} --capturar")])

    def test_the_command_that_the_settings_show_can_be_bound(self):
        desktop = self.desktop
        program = self.start()
        self.park(A)
        desktop.key("shift+super+x")
        desktop.wait_for_overlays()
        self.escape()
        self.assertTrue(program.running())


class WithoutLatinLetters(SwayTest):
    def make_desktop(self):
        return Sway(layout="ru")

    def test_letters_go_by_position(self):
        desktop = self.desktop
        self.start()
        self.select(A, (100, 100, 400, 300))
        desktop.key("r")
        desktop.drag((150, 150), (350, 300), A)
        self.copy("ctrl+c", (400, 300))
        self.assertEqual(desktop.pixels_of(desktop.clipboard("png"), (50, 100, 1, 1)), bytes((255, 59, 48)))


class SecondStart(SwayTest):
    def make_desktop(self):
        return Sway(bus=True)

    def test_it_passes_on_the_leave_to_come_to_the_front(self):
        desktop = self.desktop
        program = self.start(WAYLAND_DEBUG="client")

        def activated(leave):
            wait_for(lambda: f'.activate("{leave}", ' in program.output.read_text("utf-8"), "the settings to be activated")

        for leave in ("first", "second"):
            desktop.run("env", f"XDG_ACTIVATION_TOKEN={leave}", desktop.program, "--ajustes")
            activated(leave)
        desktop.run("gdbus", "call", "--session", "-d", ID, "-o", "/" + ID.replace(".", "/"), "-m",
                    "org.freedesktop.Application.Activate", "--", "{'activation-token': <'third'>}")
        activated("third")
        desktop.run(desktop.program, "--salir")
        self.assertEqual(program.status(), 0)


class WithoutCompositor(SwayTest):
    def test_what_it_cannot_reach_it_says_in_one_line(self):
        desktop = self.desktop
        for name in ("wayland-99", "/nowhere/wayland"):
            blind = desktop.start("--capturar", WAYLAND_DISPLAY=name)
            self.assertEqual(blind.status(), 1)
            self.assertEqual(len(blind.lines()), 1, blind.lines())
            self.assertIn(name, blind.lines()[0])
        del desktop.environment["WAYLAND_DISPLAY"]
        blind = desktop.start("--capturar")
        self.assertEqual((blind.status(), len(blind.lines())), (1, 1), blind.lines())


if __name__ == "__main__":
    unittest.main()
