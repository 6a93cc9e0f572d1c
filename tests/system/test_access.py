"""What those hear who do not see the screen, through the interface that screen readers use."""
import json
import unittest
from pathlib import Path

from case import SystemTest
from desktop import HELPERS, Process, wait_for

CLIENT = ["/usr/bin/python3", str(Path(__file__).with_name("access.py"))]
TOOLS = [("Pencil", "P"), ("Line", "L"), ("Arrow", "A"), ("Rectangle", "R"), ("Ellipse", "E"), ("Highlighter", "M"),
         ("Text", "T"), ("Pixelate", "X")]
COMMANDS = [("Colour", None), ("Undo", "Super+Z"), ("Save", "Super+S"), ("Print", "Super+P"), ("Close", "Esc"),
            ("Copy", "Return")]
COLOURS = ["Red", "Orange", "Yellow", "Green", "Blue", "Purple", "Pink", "White", "Grey", "Black", "Eyedropper",
           "Green, #12AB34", "Blue, #000080"]


def order_of_sight(node):
    """Row after row: where the middle of a control is, in rows that are as high as the smallest one."""
    x, y, _, height = node["place"]
    return (y + height // 2) // 12, x


class Access(SystemTest):
    window_manager = "openbox"
    bus = True

    def setUp(self):
        super().setUp()
        desktop = self.desktop
        desktop.run("xsetroot", "-solid", "#3060c0")
        desktop.store(coloresRecientes="#12AB34, #000080")
        desktop.run("gdbus", "call", "--session", "--dest", "org.a11y.Bus", "--object-path", "/org/a11y/bus", "--method",
                    "org.freedesktop.DBus.Properties.Set", "org.a11y.Status", "IsEnabled", "<true>")
        self.reader = Process(desktop, "reader", [*CLIENT, "listen"])
        self.reader.says("listening")

    def tree(self):
        return [json.loads(line) for line in self.desktop.run(*CLIENT, "tree").splitlines()]

    def wait_for_tree(self, condition, what):
        return wait_for(lambda: condition(tree := self.tree()) and tree, what)

    def press(self, name):
        self.assertEqual(self.desktop.run(*CLIENT, "press", name), "True\n")

    def events(self, kind):
        lines = [json.loads(line) for line in self.reader.lines() if line.startswith("[")]
        return [(role, name) for event, role, name in lines if event == kind]

    def wait_until_heard(self, text):
        wait_for(lambda: ("notification", text) in self.events("showing"), f"the words: {text}")

    def focused_in_turn(self, keys):
        """The name of what has the focus after each key."""
        names = []
        for key in keys:
            before = len(self.events("focused"))
            self.desktop.key(key)
            wait_for(lambda: len(self.events("focused")) > before, "the focus to go on")
            names.append(self.events("focused")[-1][1])
        return names

    def test_a_capture_is_read_and_heard(self):
        desktop = self.desktop
        desktop.start()
        self.select((200, 200, 1300, 700))
        self.wait_until_heard("Selection: 1300 × 700")
        desktop.drag((1500, 900), (1400, 800))
        self.wait_until_heard("Selection: 1200 × 600")

        bar = [node for node in self.tree() if node["role"] in ("push button", "radio button")]
        self.assertEqual([(node["name"], *node["keys"]) for node in bar],
                         [(name, key) if key else (name,) for name, key in TOOLS + COMMANDS])
        self.assertEqual([node["role"] for node in bar], ["radio button"] * len(TOOLS) + ["push button"] * len(COMMANDS))
        self.assertEqual(bar, sorted(bar, key=lambda node: node["place"]))
        self.assertEqual([node["description"] for node in bar if node["name"] == "Colour"], ["Red, #FF3B30, 3 px"])
        desktop.key("a")
        self.wait_for_tree(lambda tree: [node["name"] for node in tree if "checked" in node["states"]] == ["Arrow"],
                           "the tool in use")

        self.press("Colour")
        tree = self.wait_for_tree(lambda tree: any(node["role"] == "color chooser" for node in tree), "the palette")
        start = [node["role"] for node in tree].index("color chooser") + 1
        items = tree[start:start + len(COLOURS)]
        self.assertEqual([node["name"] for node in items], COLOURS)
        self.assertEqual(items, sorted(items, key=order_of_sight))
        self.assertEqual([node["name"] for node in items if "checked" in node["states"]], ["Red"])
        self.press("Purple")
        self.wait_for_tree(lambda tree: any(node["description"].startswith("Purple") for node in tree), "the colour chosen")

        desktop.key("i")
        desktop.xdotool("mousemove", 2500, 500, "mousemove", 300, 300)
        self.wait_until_heard("Blue, #3060C0")

    def test_the_save_panel_goes_from_field_to_field_and_asks_aloud(self):
        desktop = self.desktop
        (desktop.home / "Pictures/there.png").write_bytes(b"")
        desktop.start()
        self.select((200, 200, 1300, 700))
        desktop.key("ctrl+s")
        tree = self.wait_for_tree(lambda tree: any(node["role"] == "dialog" for node in tree), "the panel")
        panel = tree[[node["role"] for node in tree].index("dialog"):]
        self.assertEqual(panel[0]["name"], "Save")
        self.assertFalse([node for node in panel if "focusable" in node["states"] and not node["name"]])
        turn = self.focused_in_turn(["Tab"] * 11)
        self.assertEqual(turn, ["Save", "PNG (*.png)", "Cancel", str(desktop.home / "Pictures"), "Parent Directory",
                                "Create New Folder", "List View", "Detail View", "Sidebar", "Files", "File name:"])
        desktop.key("ctrl+a")
        desktop.type("there")
        desktop.key("Return")
        self.wait_until_heard("there.png already exists.\nDo you want to replace it?")
        wait_for(lambda: self.events("focused")[-1] == ("push button", "No"), "the focus of the answer that loses nothing")
        self.assertEqual(self.focused_in_turn(["shift+Tab", "shift+Tab"]), ["Yes", "Cancel"])

    def test_settings_and_alerts_are_read_in_the_order_of_sight(self):
        desktop = self.desktop
        # It may not see the screen of this session, and says so.
        program = desktop.start(XDG_SESSION_TYPE="wayland", WAYLAND_DISPLAY="wayland-0")
        self.assertEqual(Process(desktop, "again", [*program.process.args, "--ajustes"]).status(), 0)
        wait_for(lambda: ("push button", "Capture shortcut: Shift+Super+X") in self.events("focused"), "the recorder")
        turn = self.focused_in_turn(["Tab"] * 3)
        tree = self.tree()
        focusable = sorted((node for node in tree if "focusable" in node["states"]), key=order_of_sight)
        self.assertEqual([turn[-1], *turn[:-1]], [node["name"] for node in focusable])
        self.assertEqual(focusable[0]["description"], "Click and press the keys. Default is Shift+Super+X.")
        desktop.key("space")
        self.wait_for_tree(lambda tree: any(node["name"] == "Capture shortcut: Press the shortcut…" for node in tree),
                           "the recorder to listen")
        desktop.key("ctrl+super+k")
        self.wait_until_heard("Saved: Ctrl+Super+K")
        self.wait_for_tree(lambda tree: any(node["name"] == "Capture shortcut: Ctrl+Super+K" for node in tree), "the shortcut")
        wait_for(lambda: desktop.run(HELPERS / "witness", "--keyboard") != "held 1\n", "the recorder to let go of the keyboard")
        desktop.key("Escape")
        wait_for(lambda: not desktop.windows("^Vellumora Settings$"), "the settings to close")
        desktop.key("ctrl+super+k")
        wait_for(lambda: ("push button", "Open Settings") in self.events("focused"), "the alert")
        self.assertEqual(self.focused_in_turn(["Tab", "Tab"]), ["Cancel", "Open Settings"])
        alert = self.tree()
        words = " ".join(node["name"] for node in alert if node["role"] == "label")
        self.assertIn("Vellumora needs Screen Recording permission", words)
        self.assertIn("System Settings → Privacy & Security", words)
        buttons = [node for node in alert if node["role"] == "push button"]
        self.assertEqual([node["name"] for node in sorted(buttons, key=order_of_sight)], ["Open Settings", "Cancel"])

    def test_the_settings_grow_with_the_text_of_the_desktop(self):
        desktop = self.desktop
        (desktop.home / ".config").mkdir(exist_ok=True)
        (desktop.home / ".config/kdeglobals").write_text("[General]\nfont=DejaVu Sans,20,-1,5,50,0,0,0,0,0\n", "utf-8")
        for language, title in (("en", "Vellumora Settings"), ("fr", "Réglages de Vellumora")):
            program = desktop.start(XDG_CURRENT_DESKTOP="KDE", KDE_SESSION_VERSION="5", VELLUMORA_IDIOMA=language)
            self.assertEqual(Process(desktop, "again", [*program.process.args, "--ajustes"]).status(), 0)
            tree = self.wait_for_tree(lambda tree: any(node["name"] == title for node in tree), "the settings")
            left, top, width, height = next(node["place"] for node in tree if node["name"] == title)
            self.assertGreater(width, 500)
            for x, y, across, down in (node["place"] for node in tree if node["role"] in ("label", "push button", "check box")):
                self.assertGreater(down, 15)
                self.assertTrue(left < x and x + across < left + width and top < y and y + down < top + height)
            program.end()


if __name__ == "__main__":
    unittest.main()
