"""The program around the capture: shortcut, tray, second start, and surroundings in which things are missing."""
import re
import signal
import unittest

from case import SystemTest
from desktop import HELPERS, PROGRAM, Desktop, Process, wait_for

CTRL, ALT = 0x40000, 0x80000


class Shortcut(SystemTest):
    def test_a_taken_shortcut_falls_back_to_the_default(self):
        desktop = self.desktop
        config = desktop.home / ".config/Vellumora/Vellumora.conf"
        config.parent.mkdir(parents=True)
        config.write_text('[General]\nshortcut="@ByteArray({\\"keyCode\\":96,\\"modifiers\\":524288})"\n')
        Process(desktop, "witness", [HELPERS / "witness", "--grab", "8", "71"]).says("grabbed")  # Alt+F5
        desktop.start()
        self.assertIn("registro de atajo ⌥F5 -> FALLO", desktop.log())
        desktop.press_shortcut()
        self.escape()

    def test_it_works_whatever_the_lock_keys_and_the_layout(self):
        desktop = self.desktop
        desktop.start()
        desktop.key("Caps_Lock")
        desktop.key("Num_Lock")
        desktop.press_shortcut()
        self.escape()
        desktop.key("Caps_Lock")
        desktop.run("setxkbmap", "ru")
        desktop.xdotool("keydown", "Shift_L", "keydown", "Super_L", "key", "--delay", 0, 53, "keyup", "Super_L", "keyup",
                        "Shift_L")
        desktop.wait_for_overlays()
        self.escape()


    def test_during_a_capture_it_is_heard_and_does_nothing_else(self):
        desktop = self.desktop
        desktop.run("xset", "r", "rate", "20", "100")
        probe = (2500, 600, 300, 200)
        # To the editor these keys mean the whole screen, and pixelating.
        for code, modifiers, keys in ((0, CTRL | ALT, ("ctrl", "alt", "a")), (7, ALT, ("alt", "x"))):
            with self.subTest(keys=keys):
                desktop.store(shortcut=f'"@ByteArray({{\\"keyCode\\":{code},\\"modifiers\\":{modifiers}}})"')
                program = desktop.start()
                before = desktop.log().count("atajo pulsado")
                desktop.xdotool(*(word for key in keys for word in ("keydown", key)))
                desktop.wait_for_overlays()
                for key in keys:  # while it is held it repeats itself, without its modifiers at last
                    for _ in range(2):  # each takes many repetitions
                        dimmed = desktop.pixels(probe)
                    desktop.xdotool("keyup", key)
                desktop.drag((2120, 100), (2320, 250))
                for lock in ("Num_Lock", "Caps_Lock"):
                    desktop.key("+".join(keys), lock)
                self.assertEqual(desktop.pixels_at_rest(probe), dimmed)
                desktop.key("ctrl+s", "+".join(keys), "Escape")  # the panel does not hear it either
                desktop.key("Caps_Lock", "Num_Lock", "Return")
                wait_for(lambda: "copiado" in desktop.log(), "the copy")
                self.assertIn("copiado 200x150", desktop.log())
                desktop.wait_until_over()
                self.assertEqual(desktop.log().count("atajo pulsado") - before, 4)
                program.end()
                (desktop.home / "Library/Logs/Vellumora.log").unlink()


class TrayOnTheBus(SystemTest):
    bus = True

    def panel(self):
        panel = Process(self.desktop, "panel", [HELPERS / "panel"])
        panel.says("ready")
        return panel

    def menu(self, item):
        """The number of every entry by its label."""
        layout = self.call(item, "/MenuBar", "com.canonical.dbusmenu.GetLayout", "0", "-1", "[]")
        return {label: number for number, label in re.findall(r"<\((\d+), \{[^}]*'label': <'([^']*)'>", layout)}

    def call(self, service, path, method, *arguments):
        return self.desktop.run("gdbus", "call", "--session", "-d", service, "-o", path, "-m", method, "--", *arguments)

    def choose(self, item, label):
        number = wait_for(lambda: self.menu(item).get(label), label)
        self.call(item, "/MenuBar", "com.canonical.dbusmenu.Event", number, "clicked", '<"">', "0")

    def test_the_menu_works_and_a_late_panel_is_found(self):
        self.desktop.start()
        item = self.panel().says("item").split()[1]
        self.choose(item, "Settings…")
        wait_for(lambda: self.desktop.windows("^Vellumora Settings$"), "the settings")
        self.choose(item, "Capture   ⇧⌘X")
        self.desktop.wait_for_overlays()
        self.escape()
        self.choose(item, "Check for Updates…")
        wait_for(lambda: "actualizacion: " in self.desktop.log(), "the updater")

    def test_quitting_from_the_menu(self):
        desktop, panel = self.desktop, self.panel()
        manager = Process(desktop, "manager", [HELPERS / "clipboard", "--manage", desktop.folder])
        manager.says("manages")
        program = desktop.start(VELLUMORA_IDIOMA="de")
        self.select((2120, 100, 200, 150))
        desktop.key("Return")
        wait_for(lambda: "copiado" in desktop.log(), "the copy")
        desktop.wait_until_over()
        self.choose(panel.says("item").split()[1], "Vellumora beenden")
        self.assertEqual(program.status(), 0)
        self.assertEqual(manager.lines()[1:], ["asked 1", "saved 2"])

    def test_settings_that_open_during_a_capture_do_not_take_its_keys(self):
        first = self.desktop.start()
        self.desktop.press_shortcut()
        self.assertEqual(Process(self.desktop, "again", first.process.args).status(), 0)
        (settings,) = wait_for(lambda: self.desktop.windows("^Vellumora Settings$"), "the settings")
        wait_for(lambda: self.desktop.focus() == int(settings), "the focus of the settings")
        self.escape()


class SecondStart(SystemTest):
    def again(self, *arguments, desktop=None):
        return Process(desktop or self.desktop, "again", [PROGRAM, *arguments])

    def settings_open(self, desktop):
        wait_for(lambda: desktop.windows("^Vellumora Settings$"), "the settings")

    def test_without_a_bus_it_passes_its_wish_on(self):
        desktop = self.desktop
        desktop.start()
        for _ in range(2):  # the second one changes nothing
            self.assertEqual(self.again("--capturar").status(), 0)
            desktop.wait_for_overlays()
        self.escape()
        self.assertEqual(self.again().status(), 0)
        self.settings_open(desktop)
        self.assertEqual(desktop.log().count("registro de atajo"), 1)

    def test_it_can_be_ended_without_a_tray(self):
        desktop = self.desktop
        self.assertEqual(self.again("--salir").status(), 0)  # nobody to end
        program = desktop.start()
        desktop.press_shortcut()
        self.assertEqual(self.again("--salir").status(), 0)
        self.assertEqual(program.status(), 0)

    def test_of_many_starts_one_stays(self):
        starts = [self.again("--ajustes") for _ in range(4)]
        wait_for(lambda: sum(start.running() for start in starts) == 1, "all but one to end")
        self.settings_open(self.desktop)
        self.assertEqual(self.desktop.log().count("registro de atajo"), 1)

    def test_a_killed_one_does_not_stand_in_the_way(self):
        first = self.desktop.start()
        first.process.kill()
        first.process.wait()
        second = self.again()
        wait_for(lambda: self.desktop.log().count("-> OK") == 2, "the hot key of the second one")
        self.assertEqual(self.again("--ajustes").status(), 0)
        self.settings_open(self.desktop)
        second.process.send_signal(signal.SIGSTOP)
        refused = self.again("--capturar")
        self.assertEqual(refused.status(), 1)
        self.assertEqual(refused.lines(), ["vellumora: it is running already, but does not answer"])
        second.process.send_signal(signal.SIGCONT)

    def test_two_displays_of_one_user_have_one_each(self):
        other = Desktop()
        self.addCleanup(other.close)
        other.environment["XDG_RUNTIME_DIR"] = self.desktop.environment["XDG_RUNTIME_DIR"]
        for desktop in (self.desktop, other):
            desktop.start()
        self.assertEqual(self.again("--ajustes", desktop=other).status(), 0)
        self.settings_open(other)
        self.assertEqual(self.desktop.windows("^Vellumora Settings$"), [])


class TrayOnX11(SystemTest):
    window_manager = "openbox"
    bus = True

    def dock(self):
        """Starts a tray later than the program; the middle of the icon in it."""
        Process(self.desktop, "trayer", ["trayer", "--edge", "top", "--align", "right", "--widthtype", "request", "--height",
                                         "24", "--monitor", "0"])
        wait_for(self.painted_icon, "the icon in the tray")
        return self.icon()

    def open_menu(self, place):
        desktop = self.desktop
        desktop.xdotool("mousemove", *place, "click", 1)
        wait_for(lambda: len(desktop.xdotool("search", "--onlyvisible", "--class", "vellumora").split()) == 2,
                 "the menu beside the icon")

    def test_a_click_on_the_icon_opens_the_menu(self):
        desktop = self.desktop
        desktop.start()
        place = self.dock()
        self.open_menu(place)
        desktop.key("Down", "Return")
        desktop.wait_for_overlays()
        self.escape()
        wait_for(lambda: self.icon() == place, "the icon, which the capture has left alone")
        self.open_menu(place)
        desktop.press_shortcut()  # the menu holds the keyboard, but it is ours
        self.escape()

    def test_an_open_menu_is_not_in_the_picture(self):
        desktop = self.desktop
        desktop.witness((1000, 0, 920, 600), 150)  # slow to repaint what the menu has covered
        desktop.start()
        place = self.dock()
        covered = (1500, 60, 300, 200)
        screen = desktop.screenshot()
        self.open_menu(place)
        wait_for(lambda: desktop.pixels(covered) != desktop.pixels_of(screen, covered), "the painted menu")
        self.assertEqual(desktop.start("--capturar").status(), 0)
        desktop.wait_for_overlays()
        desktop.drag(covered[:2], (1800, 260))
        desktop.key("Return")
        desktop.wait_until_over()
        self.assert_same_pixels(desktop.pixels_of(desktop.clipboard("png")), desktop.pixels_of(screen, covered))

    def painted_icon(self):
        """Whether the tray has given the icon its place and the program has painted it there."""
        place = self.icon()
        if not place:
            return False
        x, y = place
        return len(set(self.desktop.pixels((x - 8, y - 8, 16, 16)))) > 8 and self.icon() == place

    def icon(self):
        """The middle of the icon once it is docked at the end of monitor A, in pixels of the root window."""
        tree = self.desktop.run("xwininfo", "-root", "-tree")
        found = re.search(r'"vellumora".*\s(\d+)x(\d+)\+-?\d+\+-?\d+\s+\+(\d+)\+(\d+)', tree)
        width, height, x, y = map(int, found.groups()) if found else (0, 0, 0, 0)
        return (x + width // 2, y + height // 2) if x > 1800 else None


class Ending(SystemTest):
    window_manager = "openbox"

    def assert_ends(self, program, window, number=signal.SIGTERM):
        """In order, with the keyboard and the focus where they were."""
        program.process.send_signal(number)
        self.assertEqual(program.status(), 0)
        self.assertEqual(self.desktop.run(HELPERS / "witness", "--keyboard"), "held 0\n")
        wait_for(lambda: self.desktop.focus() == window, "the focus of the witness")
        self.assertEqual(program.lines(), [])

    def test_a_signal_ends_it_in_order_whatever_is_open(self):
        desktop = self.desktop
        _, window = desktop.witness((0, 0, 3520, 900))
        manager = Process(desktop, "manager", [HELPERS / "clipboard", "--manage", desktop.folder])
        manager.says("manages")
        temporary = desktop.folder / "tmp"
        temporary.mkdir()

        program = desktop.start(TMPDIR=str(temporary))
        self.select((2120, 100, 200, 150))
        desktop.key("Return")
        wait_for(lambda: "copiado" in desktop.log(), "the copy")
        desktop.wait_until_over()
        self.assert_ends(program, window)
        self.assertEqual(manager.says("saved"), "saved 2")
        self.assertEqual(list(temporary.iterdir()), [])

        program = desktop.start()
        self.select((2120, 100, 200, 150))
        desktop.key("ctrl+s")
        self.assert_ends(program, window)

        program = desktop.start()
        self.select((2120, 100, 200, 150))
        desktop.key("ctrl+p")
        wait_for(lambda: desktop.windows("^Print$"), "the print dialog")
        self.assert_ends(program, window, signal.SIGINT)

    def test_a_signal_ends_a_recording(self):
        desktop = self.desktop
        _, window = desktop.witness((0, 0, 3520, 900))
        program = desktop.start("--ajustes")
        (settings,) = wait_for(lambda: desktop.windows("^Vellumora Settings$"), "the settings")
        wait_for(lambda: desktop.focus() == int(settings), "the focus of the settings")
        desktop.key("space")
        wait_for(lambda: desktop.run(HELPERS / "witness", "--keyboard") == "held 1\n", "the recorder")
        self.assert_ends(program, window)


class PoorSurroundings(SystemTest):
    def test_without_bus_tray_sound_and_home_it_works_and_says_nothing(self):
        desktop = self.desktop
        # Not even the superuser makes folders there.
        program = Process(desktop, "vellumora", [*desktop.start("--version").process.args[:1]], HOME="/dev/null/home")
        wait_for(lambda: self.captures(), "the hot key")
        desktop.drag((100, 100), (200, 200))
        desktop.key("Return")
        desktop.wait_until_over()
        self.assertTrue(program.running())
        # Without a home the fonts have nowhere to keep their index, unless that is there already.
        self.assertEqual([line for line in program.lines() if not line.startswith("Fontconfig")], [])

    def captures(self):
        self.desktop.key("shift+super+x")
        return len(self.desktop.overlays()) == 2

    def test_where_it_may_not_see_the_screen_it_opens_what_helps(self):
        desktop = self.desktop
        tools = desktop.folder / "tools"
        tools.mkdir()
        for name in ("gnome-control-center", "xdg-open"):
            (tools / name).write_text(f"#!/bin/sh\necho {name} $* >> {desktop.folder}/opened\n", "utf-8")
            (tools / name).chmod(0o755)
        opened = desktop.folder / "opened"
        for session, wanted in (("ubuntu:GNOME", "gnome-control-center privacy\n"), ("XFCE", "xdg-open https://")):
            program = desktop.start(XDG_SESSION_TYPE="wayland", WAYLAND_DISPLAY="wayland-0", XDG_CURRENT_DESKTOP=session,
                                    PATH=f"{tools}:{desktop.environment['PATH']}")
            desktop.key("shift+super+x")
            (alert,) = wait_for(lambda: desktop.windows("^Vellumora$"), "the alert")
            wait_for(lambda: desktop.focus() == int(alert), "the focus of the alert")
            desktop.key("Return")
            wait_for(lambda: opened.exists() and opened.read_text("utf-8"), wanted)
            self.assertIn(wanted, opened.read_text("utf-8"))
            opened.unlink()
            program.end()

    def test_a_desk_that_has_grown_is_captured_whole(self):
        desktop = self.desktop
        for monitor in "AB":
            desktop.run("xrandr", "--delmonitor", monitor)
        desktop.run("xrandr", "--newmode", "small", *"100 1920 1930 1940 1950 1200 1201 1202 1203".split())
        desktop.run("xrandr", "--addmode", "screen", "small")
        desktop.run("xrandr", "--output", "screen", "--mode", "small")
        desktop.start()
        desktop.run("xrandr", "--output", "screen", "--mode", "3520x1200")
        desktop.witness((0, 0, 3520, 1200))
        desktop.key("shift+super+x")
        wait_for(lambda: desktop.overlays(), "the overlay")
        desktop.key("ctrl+a", "Return")
        wait_for(lambda: "copiado" in desktop.log(), "the copy")
        self.assertIn("copiado 3520x1200", desktop.log())

    def test_a_monitor_that_goes_ends_the_capture(self):
        desktop = self.desktop
        program = desktop.start()
        desktop.press_shortcut()
        desktop.run("xrandr", "--delmonitor", "B")
        desktop.wait_until_over()
        desktop.set_monitor("B")
        desktop.press_shortcut()
        self.escape()
        self.assertTrue(program.running())

    def test_without_the_server_it_ends_in_order(self):
        program = self.desktop.start()
        self.desktop.press_shortcut()
        self.desktop.server.kill()
        self.assertEqual(program.status(), 1)

    def test_what_it_cannot_do_it_says_in_one_line(self):
        desktop = self.desktop
        unknown = desktop.start("--now")
        self.assertEqual(unknown.status(), 2)
        self.assertEqual(len(unknown.lines()), 1)
        for toolkit in ("", "wayland;xcb"):
            blind = desktop.start("--capturar", DISPLAY="", QT_QPA_PLATFORM=toolkit)
            self.assertEqual(blind.status(), 1)
            self.assertEqual(blind.lines(), ["vellumora: there is no display to run on: neither WAYLAND_DISPLAY nor DISPLAY is set"])


if __name__ == "__main__":
    unittest.main()
