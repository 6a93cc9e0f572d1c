"""Times out of what a Wayland client says to the compositor and hears from it (WAYLAND_DEBUG=client)."""
import re
import time

LINE = re.compile(r"^\[ *(\d+)\.(\d+)\] (?:\{.*?\} )?( -> )?(\w+)[@#](\d+)\.(\w+)\((.*)\)$")
WRAP = 2 ** 32  # microseconds; the library counts in 32 bits


def now():
    """Milliseconds on the clock of the log."""
    return int(time.time() * 1e6) % WRAP / 1000


class Message:
    def __init__(self, found):
        self.time = int(found[1]) + int(found[2]) / 1000  # milliseconds
        self.sent = found[3] is not None
        self.interface, self.id, self.name, self.arguments = found[4], found[5], found[6], found[7]


def messages(path, since):
    found = (LINE.match(line) for line in path.read_text("utf-8", "replace").splitlines())
    return [message for message in map(Message, filter(None, found)) if message.time >= since]


def layers(log):
    """The surfaces that have become layers."""
    asked = (message for message in log if message.name == "get_layer_surface")
    return [re.search(r"wl_surface[@#](\d+)", message.arguments)[1] for message in asked]


def commits(log, surface):
    return [message.time for message in log if message.sent and message.interface == "wl_surface" and message.id == surface
            and message.name == "commit"]


def first_pictures(log):
    """When each layer was handed its first picture."""
    times = []
    for surface in layers(log):
        pictures = [message.time for message in log if message.interface == "wl_surface" and message.id == surface
                    and message.name == "attach" and "nil" not in message.arguments]
        if pictures:
            times.append(min(time for time in commits(log, surface) if time >= pictures[0]))
    return times


def steps(log, surface):
    """Milliseconds from each motion of the pointer to the next picture of that surface."""
    pictures = commits(log, surface)
    waits = []
    for message in log:
        if message.interface == "wl_pointer" and message.name == "motion":
            later = [time for time in pictures if time >= message.time]
            if later:
                waits.append(later[0] - message.time)
    return waits
