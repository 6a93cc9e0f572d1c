"""sway without a screen: outputs in memory, painted by the processor."""
import subprocess

from session import ID, Process, wait_for
from wayland_desktop import Output, Picture, WaylandDesktop

A = Output("HEADLESS-1", 1920, 1200, 2)
B = Output("HEADLESS-2", 1600, 900, 1, A.right)
# On its side: the compositor's memory is 900 pixels wide and 1600 high.
ROTATED = Output("HEADLESS-2", 1600, 900, 1, A.right, 0, "90")


class Sway(WaylandDesktop):
    name = "sway"
    as_nobody = True
    witness_mode = ()  # alone on its desktop it covers all of an output

    def __init__(self, outputs=(A, B), bus=False, bindings=(), layout="us"):
        self.bindings = bindings
        self.layout = layout
        super().__init__(outputs, bus)

    def _start_compositor(self):
        self.environment["XKB_DEFAULT_LAYOUT"] = self.layout
        config = self.folder / "sway.conf"
        ready = self.folder / "ready"
        config.write_text("\n".join([
            *(self._configured(output) for output in self.outputs),
            "default_border none", "default_floating_border none", "xwayland disable",
            *(f"workspace {i} output {output.name}\nassign [title=\"witness-{output.name}\"] workspace {i}"
              for i, output in enumerate(self.outputs, 1)),
            f'for_window [app_id="{ID}"] floating enable',
            *(f"bindsym {keys} exec {command.format(program=self.program)}" for keys, command in self.bindings),
            f'exec "echo $WAYLAND_DISPLAY $SWAYSOCK > {ready}.new && mv {ready}.new {ready}"', ""]), "utf-8")
        self._own()
        process = Process(self, "sway", ["sway", "-c", str(config)], WLR_BACKENDS="headless", WLR_LIBINPUT_NO_DEVICES="1",
                          WLR_RENDERER="pixman", WLR_HEADLESS_OUTPUTS=str(len(self.outputs)))
        wait_for(ready.exists, "sway")
        self.environment["WAYLAND_DISPLAY"], self.environment["SWAYSOCK"] = ready.read_text("utf-8").split()
        return process

    @staticmethod
    def _configured(output):
        width, height = (output.width, output.height) if output.transform == "normal" else (output.height, output.width)
        return (f"output {output.name} resolution {width}x{height} position {round(output.x)},{round(output.y)} "
                f"scale {output.scale} transform {output.transform}")

    def witness(self, output):
        self.move_to((output.width // 2, output.height // 2), output)  # where a new window has the keyboard
        process = super().witness(output)
        process.says("keyboard 1")
        return process

    def tell(self, *command):
        """Tells the compositor itself; its answer."""
        return self.run("swaymsg", *command)

    def look(self, output):
        return Picture(self.run("grim", "-t", "ppm", "-o", output.name, "-", binary=True))
