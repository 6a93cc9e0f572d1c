"""What every Wayland desktop has to let the program do; the tests of each desktop add what is special there."""
import math

from case import PictureTest
from session import wait_for
from wayland_desktop import pattern


class WaylandTest(PictureTest):
    odd_area = (101, 203, 401, 403)
    other_save = "super+s"

    def make_desktop(self):
        raise NotImplementedError

    def setUp(self):
        self.desktop = self.make_desktop()
        self.addCleanup(self.desktop.close)

    @property
    def outputs(self):
        return self.desktop.outputs

    def start(self, **environment):
        """The program, over a witness on every output; the keyboard is that of the first."""
        self.witnesses = self.desktop.witnesses()
        self.desktop.store(pistaFiguras=99)  # the tip would lie over the marks
        return self.desktop.start(**environment)

    def park(self, output):
        """Puts the pointer where no region is, because some compositors paint it into the picture."""
        self.desktop.move_to((output.width - 60, output.height // 2), output)

    def select(self, output, area):
        """Freezes the screens with the pointer on this one and drags out the area."""
        x, y, width, height = area
        self.park(output)
        self.desktop.capture()
        self.desktop.drag((x, y), (x + width, y + height), output)

    def copy(self, keys, size):
        """Copies, and returns when the screens are free again."""
        desktop = self.desktop
        before = desktop.log().count("copiado")
        desktop.key(keys)
        wait_for(lambda: desktop.log().count("copiado") > before, "the copy")
        copies = [line for line in desktop.log().splitlines() if "copiado" in line]
        self.assertRegex(copies[-1], f"copiado {size[0]}x{size[1]} png=\\d+ -> OK")
        desktop.wait_until_over()

    def wait_for_keyboard(self, witness, times):
        wait_for(lambda: witness.lines().count("keyboard 1 0") >= times, "the keyboard of the witness")

    def at_rest(self, output, area):
        """The pixels there, once all that was typed and drawn is on the screen."""
        last = [None]

        def unchanged():
            before, last[0] = last[0], self.desktop.pixels(output, area)
            return before == last[0]

        wait_for(unchanged, "a screen at rest")
        return last[0]


class MainJob:
    """Runs on every desktop that gives exact pictures of its outputs."""

    def test_a_region_of_every_output_is_copied_pixel_for_pixel(self):
        desktop = self.desktop
        self.start()
        first, second = self.outputs[:2]
        # The last one has odd pixels on the output with two pixels a point.
        for output, area in ((second, (200, 100, 400, 300)), (first, (100, 200, 400, 400)), (first, self.odd_area)):
            with self.subTest(output=output.name, area=area):
                had = self.witnesses[0].lines().count("keyboard 1 0")
                self.select(output, area)
                self.copy("Return", area[2:])
                for kind in ("png", "tiff"):
                    self.assert_same_pixels(desktop.pixels_of(desktop.clipboard(kind)), pattern(area))
        self.assertGreaterEqual(self.witnesses[0].lines().count("keyboard 1 0"), had)

    def test_all_freeze_dimmed_and_escape_gives_them_back(self):
        desktop = self.desktop
        program = self.start()
        self.park(self.outputs[0])
        desktop.capture()
        for output in self.outputs:
            area = (300, 300, 200, 50)
            dimmed = [round(value * 0.55) for value in pattern(area)]
            shown = desktop.pixels(output, area)
            self.assertLess(max(abs(a - b) for a, b in zip(dimmed, shown)), 4)
        self.assertEqual(desktop.start("--capturar").status(), 0)  # nothing happens while a capture is in progress
        desktop.key("a")
        for output in self.outputs:
            self.assertTrue(desktop.frozen(output))
        had = self.witnesses[0].lines().count("keyboard 1 0")
        self.escape()
        for output in self.outputs:
            self.assert_same_pixels(desktop.pixels(output, area), pattern(area))
        self.wait_for_keyboard(self.witnesses[0], had + 1)
        desktop.key("b")
        self.witnesses[0].says("key 48")
        self.assertNotIn("key 30 0", self.witnesses[0].lines())  # a did not arrive
        self.assertTrue(program.running())

    def test_a_selection_on_one_output_clears_the_other_and_the_keys_follow(self):
        desktop = self.desktop
        self.start()
        first, second = self.outputs[:2]
        inside = (300, 300, 40, 40)
        self.select(first, (100, 100, 600, 500))
        wait_for(lambda: desktop.pixels(first, inside) == pattern(inside), "a bright selection")
        desktop.drag((700, 200), (900, 350), second)
        wait_for(lambda: desktop.pixels(first, inside) != pattern(inside), "the other selection to go")
        self.copy("ctrl+c", (200, 150))
        self.assert_same_pixels(desktop.pixels_of(desktop.clipboard("png")), pattern((700, 200, 200, 150)))

    def test_the_own_settings_window_is_not_in_the_picture(self):
        desktop = self.desktop
        self.start()
        self.assertEqual(desktop.start("--ajustes").status(), 0)

        def with_settings():
            """The output on which they are, where they do not show what the witness does, and where on it."""
            places = [(output, (x, y, 60, 40)) for output in self.outputs[:2] for x, y in
                      ((output.width // 2 - 30, output.height // 2 - 20), (200, 300))]
            return next((place for place in places if desktop.pixels(*place) != pattern(place[1])), None)

        output, place = wait_for(with_settings, "the settings")
        self.select(output, place)
        self.copy("Return", place[2:])
        self.assert_same_pixels(desktop.pixels_of(desktop.clipboard("png")), pattern(place))
        wait_for(with_settings, "the settings to come back")

    def test_saving_from_the_panel_on_the_overlay(self):
        desktop = self.desktop
        output = self.outputs[1]
        self.start()
        area = (200, 100, 200, 150)
        self.select(output, area)
        middle = (output.width // 2 - 20, output.height // 2 - 200, 60, 60)  # where the panel comes up
        dimmed = self.at_rest(output, middle)
        desktop.key("ctrl+s")
        wait_for(lambda: desktop.pixels(output, middle) != dimmed, "the panel")
        desktop.key("Escape")
        wait_for(lambda: desktop.pixels(output, middle) == dimmed, "the panel to go")
        self.assertTrue(desktop.frozen(output))
        desktop.key(self.other_save)
        wait_for(lambda: desktop.pixels(output, middle) != dimmed, "the panel again")
        desktop.key("ctrl+a")
        desktop.type("region")
        desktop.key("Return")
        desktop.wait_until_over()
        saved = desktop.home / "Pictures/region.png"
        self.assert_same_pixels(desktop.pixels_of(saved), pattern(area))


class Drawing:
    """What is drawn over the picture; the overlay does not know which desktop it is on."""

    def test_marks_text_and_a_held_stroke_are_copied_as_they_are_seen(self):
        desktop = self.desktop
        output = self.outputs[0]
        area = (100, 100, 1000, 600)
        self.start()
        self.select(output, area)
        for i, letter in enumerate("lare"):
            desktop.key(letter)
            desktop.drag((151 + 170 * i, 160), (290 + 170 * i, 281), output)
        desktop.key("t")
        desktop.click((201, 501), output)
        desktop.type("Hello, world")
        desktop.key("Escape")  # ends the text, not the capture
        desktop.key("p")
        desktop.pull([(800 + round(120 * math.cos(i / 8)), 450 + round(120 * math.sin(i / 8))) for i in range(51)], output)
        wait_for(lambda: " figura: circulo" in desktop.log(), "the circle")
        desktop.button(False)
        desktop.key("p")  # the hand without a tool has another pointer
        self.park(output)
        # Without the frame, its handles and the shadow of the bar.
        inner = (area[0] + 24, area[1] + 24, area[2] - 48, area[3] - 150)
        seen = self.at_rest(output, inner)
        self.copy("Return", area[2:])
        got = desktop.pixels_of(desktop.clipboard("png"), (24, 24, *inner[2:]))
        self.assert_same_pixels(got, seen)
        plain = pattern(inner)
        places = {(800 + 120 - inner[0], 450 - inner[1]), (240 - inner[0], 490 - inner[1])}
        for x, y in places:  # the circle's right edge, the middle of the text
            around = [3 * (inner[2] * (y + dy) + x + dx) for dy in range(-30, 31) for dx in range(-30, 31)]
            self.assertTrue(any(got[at:at + 3] == bytes((255, 59, 48)) for at in around), f"no ink near {x, y}")
            self.assertTrue(any(got[at:at + 3] != plain[at:at + 3] for at in around))
