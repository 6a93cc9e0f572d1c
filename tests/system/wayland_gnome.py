"""gnome-shell without a screen, on a message bus of its own and with a stand-in for the system's bus, on which nothing but a log-in
service lives. The pictures come through the desktop's own portal."""
import re

from session import Process, wait_for
from wayland_desktop import Output, Picture, WaylandDesktop


class InPixels(Output):
    """The desktop is as large as its outputs have pixels, whatever their scale."""

    def point(self, pixel):
        return self.x + pixel[0], self.y + pixel[1]


FIRST_START = 40  # seconds; it reads half the disk

# The first is large enough for the shell to offer a scale of 2.
A = InPixels("Meta-0", 1600, 960, 2)
B = InPixels("Meta-1", 1280, 800, 1, A.width)


class Gnome(WaylandDesktop):
    name = "GNOME"
    variables = {"XDG_SESSION_DESKTOP": "gnome", "WAYLAND_DISPLAY": "wayland-test"}
    outputs_have_names = False

    def __init__(self, outputs=(A, B)):
        super().__init__(outputs, bus=True)

    def _start_compositor(self):
        system = Process(self, "system-bus", ["dbus-daemon", "--session", "--nofork", "--print-address"])
        self.environment["DBUS_SYSTEM_BUS_ADDRESS"] = system.says("unix:")
        Process(self, "login", ["/usr/bin/python3", "-m", "dbusmock", "--system", "--template", "logind"])
        wait_for(lambda: "org.freedesktop.login1" in self.call_system("ListNames"), "the log-in service")
        self.run("gsettings", "set", "org.gnome.desktop.interface", "enable-animations", "false")
        Process(self, "pipewire", ["pipewire"])  # the hand's places are those of a film
        wait_for((self.folder / "run/pipewire-0").exists, "pipewire")
        monitors = [word for output in self.outputs for word in ("--virtual-monitor", f"{output.width}x{output.height}")]
        command = ["gnome-shell", "--headless", "--no-x11", "--wayland-display", "wayland-test", *monitors]
        # Once in a hundred starts it hangs before it has begun.
        process = self._started(command) or self._started(command)
        if not process:
            raise AssertionError("there is no GNOME")
        self.arrange()
        return process

    def _started(self, command):
        """The shell, or nothing when it does not come up."""
        process = Process(self, "shell", command)
        try:
            wait_for(lambda: any("GNOME Shell started" in line for line in process.lines()), "the shell", FIRST_START)
        except AssertionError:
            print("gnome-shell has not come up:", *process.lines(), sep="\n", flush=True)
            process.end()
            return None
        return process

    def overview(self, verb, *value):
        return self.run("gdbus", "call", "--session", "-d", "org.gnome.Shell", "-o", "/org/gnome/Shell", "-m",
                        f"org.freedesktop.DBus.Properties.{verb}", "org.gnome.Shell", "OverviewActive", *value)

    def shows_pattern(self, output):
        """The shell begins with an overview in which all windows are small, and while it starts it insists on that."""
        if "true" in self.overview("Get"):
            self.overview("Set", "<false>")
            return False
        return super().shows_pattern(output)

    def _bus_options(self):
        return ["--session"]  # the shell starts its helpers over it

    def call_system(self, method):
        return self.run("gdbus", "call", "--address", self.environment["DBUS_SYSTEM_BUS_ADDRESS"], "-d", "org.freedesktop.DBus",
                        "-o", "/org/freedesktop/DBus", "-m", f"org.freedesktop.DBus.{method}")

    def call_bus(self, method):
        return self.run("gdbus", "call", "--session", "-d", "org.freedesktop.DBus", "-o", "/org/freedesktop/DBus", "-m",
                        f"org.freedesktop.DBus.{method}")

    def display_config(self, method, *arguments):
        return self.run("gdbus", "call", "--session", "-d", "org.gnome.Mutter.DisplayConfig", "-o", "/org/gnome/Mutter/DisplayConfig",
                        "-m", f"org.gnome.Mutter.DisplayConfig.{method}", "--", *arguments)

    def arrange(self):
        """Gives the outputs their scales and places."""
        state = self.display_config("GetCurrentState")
        serial = re.match(r"\(uint32 (\d+)", state)[1]
        wanted = []
        for output in self.outputs:
            mode = re.search(rf"'({output.width}x{output.height}@[^']*)'", state)[1]
            wanted.append(f"({round(output.x)}, 0, {float(output.scale)}, uint32 0, {'true' if not wanted else 'false'}, "
                          f"[('{output.name}', '{mode}', @a{{sv}} {{}})])")
        self.display_config("ApplyMonitorsConfig", serial, "1", f"[{', '.join(wanted)}]", "{}")

    def permit(self, answer):
        """As if the user had answered the shell's question whether programs may see the screen."""
        (self.home / ".local/share/flatpak/db").mkdir(parents=True, exist_ok=True)
        store = "org.freedesktop.impl.portal.PermissionStore"
        self.run("gdbus", "call", "--session", "-d", store, "-o", "/org/freedesktop/impl/portal/PermissionStore", "-m",
                 f"{store}.SetPermission", "screenshot", "true", "screenshot", "", f"['{answer}']")

    def look(self, output):
        return self._look(output, (0, 0, output.width, output.height))

    def pixels(self, output, area):
        return self._look(output, area).bytes

    def _look(self, output, area):
        path = self.folder / "look.png"
        path.unlink(missing_ok=True)
        x, y, width, height = area
        x += round(output.x)
        # The shell counts pixels in twos, because of the scale of the first output.
        begin = (x // 2, y // 2)
        end = (-(-(x + width) // 2), -(-(y + height) // 2))
        self.run(str(self.helpers / "wayland-look"), "gnome", *map(str, begin), str(end[0] - begin[0]), str(end[1] - begin[1]),
                 str(path))
        crop = f"{width}x{height}+{x - 2 * begin[0]}+{y - 2 * begin[1]}"
        return Picture(self.run("convert", str(path), "-crop", crop, "+repage", "ppm:-", binary=True))
