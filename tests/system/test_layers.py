"""What opens on an overlay that is a layer: menus, lists and questions of Qt's, which are no windows there."""
import unittest

from session import wait_for
from wayland_case import WaylandTest
from wayland_sway import Sway

RIGHT_BUTTON = 273
DELETE = 111


class OnALayer(WaylandTest):
    def make_desktop(self):
        return Sway()

    def open_panel(self, output):
        """The save panel on that output; its list of files has the keyboard."""
        desktop = self.desktop
        self.select(output, (20, 20, 60, 60))
        desktop.key("ctrl+s")
        middle = (output.width // 2, output.height // 2)
        wait_for(lambda: self.paper(output, (*middle, 4, 4)), "the panel")
        desktop.click(middle, output)
        return middle

    def paper(self, output, area):
        """Whether there is nothing but the white of a list."""
        return set(self.desktop.look(output).crop(area)) == {255}

    def press(self, code):
        self.desktop.hand.tell(f"key {code} 1", f"key {code} 0")

    def test_a_menu_shows_where_it_was_opened_and_escape_closes_it_alone(self):
        desktop = self.desktop
        self.start()
        for output in self.outputs[::-1]:
            with self.subTest(output=output.name):
                middle = self.open_panel(output)
                below = (middle[0] + 40 * output.scale, middle[1] + 5 * output.scale, 60, 20)  # not below the pointer
                desktop.hand.tell(f"button {RIGHT_BUTTON} 1", f"button {RIGHT_BUTTON} 0")
                wait_for(lambda: not self.paper(output, below), "the menu")
                desktop.key("Escape")
                wait_for(lambda: self.paper(output, below), "the list without the menu")
                desktop.key("Escape")
                wait_for(lambda: not self.paper(output, below), "the end of the panel")
                self.assertTrue(desktop.frozen(output))
                self.escape()

    def test_a_question_shows_above_the_panel_and_hears_the_keys(self):
        desktop = self.desktop
        self.start()
        old = desktop.home / "Pictures/old.png"
        old.write_bytes(b"")
        desktop._own()
        output = self.outputs[1]
        middle = self.open_panel(output)
        around = (middle[0] - 40, middle[1] - 20, 80, 40)
        for answer, remains in (("Escape", True), ("y", False)):
            desktop.type("old")  # chooses it in the list
            self.press(DELETE)
            wait_for(lambda: not self.paper(output, around), "the question")
            desktop.click((middle[0], output.height - 40), output)  # nothing below hears that
            desktop.key(answer)
            wait_for(lambda: self.paper(output, around), "the answered question to go")
            self.assertEqual(old.exists(), remains)
        desktop.key("Escape")
        wait_for(lambda: not self.paper(output, around), "the end of the panel")
        self.assertTrue(desktop.frozen(output))


if __name__ == "__main__":
    unittest.main()
