"""Drawing with real input: what is copied is what was on the screen."""
import unittest

from case import SystemTest
from desktop import wait_for


class Marks(SystemTest):
    window_manager = "openbox"

    def start_with(self, area):
        self.desktop.witness((0, 0, 3520, 900))
        self.desktop.store(pistaFiguras=99)  # the tip would lie over the marks
        self.desktop.start()
        self.select(area)

    def copied(self, area):
        """The picture on the clipboard and what the screen showed just before, both without the frame and its handles and
        without the lower edge, on which the shadow of the bar falls."""
        desktop = self.desktop
        margin, shadow = 24, 130
        width, height = area[2] - 2 * margin, area[3] - margin - shadow
        screen = desktop.pixels_at_rest((area[0] + margin, area[1] + margin, width, height))
        desktop.key("ctrl+c")
        wait_for(lambda: f"copiado {area[2]}x{area[3]} " in desktop.log(), "the copy")
        desktop.wait_until_over()
        return desktop.pixels_of(desktop.clipboard("png"), (margin, margin, width, height)), screen

    def test_every_tool_on_the_dense_screen(self):
        desktop = self.desktop
        area = (100, 100, 1200, 800)
        self.start_with(area)
        plain = desktop.screenshot()
        for i, letter in enumerate("plarem"):
            desktop.key(letter)
            desktop.drag((151 + 170 * i, 160), (290 + 170 * i, 281))
        desktop.key("x")
        desktop.drag((200, 400), (600, 621))
        desktop.key("t")
        desktop.xdotool("mousemove", 701, 501, "click", 1)
        desktop.type("Hello, world")
        desktop.key("Escape")  # ends the text, not the capture
        desktop.key("t")
        got, seen = self.copied(area)
        self.assert_same_pixels(got, seen)
        self.assertNotEqual(got, desktop.pixels_of(plain, (124, 124, 1152, 646)))

    def test_a_selection_that_is_moved_about(self):
        desktop = self.desktop
        x, y, width, height = 100, 100, 1200, 800
        self.start_with((x, y, width, height))
        for i, letter in enumerate("plrxemx"):
            desktop.key(letter)
            desktop.drag((151 + 130 * i, 160 + 70 * i), (330 + 130 * i, 331 + 70 * i))
            desktop.key(letter)
        for by_x, by_y in ((61, 33), (-87, 14), (250, -40), (-35, 121)):
            desktop.drag((x + 130, y + 700), (x + 130 + by_x, y + 700 + by_y))
            x, y = x + by_x, y + by_y
        got, seen = self.copied((x, y, width, height))
        self.assert_same_pixels(got, seen)

    def test_shift_undo_and_a_text(self):
        desktop = self.desktop
        area = (2000, 100, 400, 300)
        self.start_with(area)
        desktop.key("r")
        desktop.xdotool("keydown", "shift")
        desktop.drag((2050, 150), (2100, 320))
        desktop.xdotool("keyup", "shift")
        desktop.key("p")
        desktop.drag((2300, 150), (2380, 350))
        desktop.key("super+z")  # the stroke goes, the square stays
        desktop.key("t")
        desktop.xdotool("mousemove", 2200, 250, "click", 1)
        desktop.type("open")
        desktop.key("ctrl+c")  # the field's own, which has nothing to copy
        desktop.key("Return")
        got, _ = self.copied(area)
        margin = 24
        at = lambda x, y: 3 * ((y - 100 - margin) * (400 - 2 * margin) + x - 2000 - margin)
        red = bytes((255, 59, 48))
        self.assertEqual(got[at(2220, 200):][:3], red)  # the right edge of a square 170 wide
        self.assertNotEqual(got[at(2340, 250):][:3], red)
        self.assertIn(red, [got[at(x, 245):][:3] for x in range(2200, 2260)])  # inside a letter

    def test_marks_are_corrected_while_alt_is_held(self):
        desktop = self.desktop
        area, inside = (100, 100, 1200, 800), (130, 130, 1140, 620)
        self.start_with(area)

        def shows_other_than(picture, what):
            wait_for(lambda: desktop.pixels(inside) != picture, what)
            return desktop.pixels_at_rest(inside)

        def red_at(picture, x, y):
            at = 3 * ((y - inside[1]) * inside[2] + x - inside[0])
            return picture[at:at + 3] == bytes((255, 59, 48))

        for letter, left in ("r", 200), ("e", 600):
            desktop.key(letter)
            desktop.drag((left, 200), (left + 200, 300))
            desktop.key(letter)
        drawn = desktop.pixels_at_rest(inside)
        desktop.xdotool("keydown", "alt")
        desktop.drag((200, 250), (300, 450))
        desktop.xdotool("keyup", "alt")
        moved = shows_other_than(drawn, "the moved rectangle")
        self.assertEqual([red_at(moved, x, y) for x, y in ((200, 250), (300, 450), (600, 250))], [False, True, True])
        desktop.xdotool("mousemove", 600, 250, "keydown", "alt", "key", "Delete", "keyup", "alt")
        removed = shows_other_than(moved, "the ellipse to go")
        self.assertEqual([red_at(removed, x, y) for x, y in ((300, 450), (600, 250))], [True, False])
        got, seen = self.copied(area)
        self.assert_same_pixels(got, seen)

    def test_the_bar_does_it_with_the_mouse(self):
        desktop = self.desktop
        area = (2000, 100, 800, 300)
        self.start_with(area)
        # The bar is centred 12 points below; its buttons are 32 points wide, 34 apart.
        bar = (2400 - 638 // 2, 412)
        click = lambda x, y: desktop.xdotool("mousemove", x, y, "click", 1)
        for i in range(8):
            cell = (2030 + 95 * i, 150, 60, 60)
            before = desktop.pixels(cell)
            click(bar[0] + 21 + 34 * i, bar[1] + 21)
            if i == 6:
                click(cell[0] + 5, cell[1] + 40)
                desktop.type("Ag")
                desktop.key("Return")
            else:
                desktop.drag((cell[0] + 5, cell[1] + 5), (cell[0] + 55, cell[1] + 50))
            wait_for(lambda: desktop.pixels(cell) != before, f"the mark of tool {i}")
        desktop.key("r", "i")
        desktop.xdotool("mousemove", 3000, 700)
        click(3001, 701)  # off the frozen screen, not its dimmed picture
        desktop.drag((2300, 130), (2500, 230))
        got, _ = self.copied(area)
        margin = 24
        at = 3 * ((180 - 100 - margin) * (800 - 2 * margin) + 2300 - 2000 - margin)
        self.assertEqual(got[at:at + 3], desktop.pixels((3001, 701, 1, 1)))

    def test_accents_are_composed(self):
        desktop = self.desktop
        desktop.run("setxkbmap", "us", "-variant", "intl")
        self.start_with((2000, 100, 400, 300))
        desktop.key("t")
        place = (2090, 200, 60, 70)

        def other_than(picture, what):
            return wait_for(lambda: (now := desktop.pixels(place)) != picture and now, what)

        def shown_after(*keys):
            """What the screen shows when these keys have been typed into a new text."""
            bare = desktop.pixels(place)
            desktop.xdotool("mousemove", 2100, 250, "click", 1)
            invitation = other_than(bare, "an open text")
            desktop.key(*keys)
            picture = other_than(invitation, "the letter")
            desktop.key("Escape")
            desktop.key("super+z")
            wait_for(lambda: desktop.pixels(place) == bare, "the text to go")
            return picture

        plain = shown_after("e")
        self.assertNotEqual(shown_after("dead_acute", "e"), plain)
        self.escape()


if __name__ == "__main__":
    unittest.main()
