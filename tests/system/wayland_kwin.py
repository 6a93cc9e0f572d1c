"""KWin without a screen, on a message bus of its own. Its checks of who may take pictures and press keys stay on: the hand and the
eye have desktop entries that grant it, as any program needs, and Vellumora the one that packages install."""
import atexit
import shutil
import tempfile
from pathlib import Path

from session import ID, Process, wait_for
from wayland_desktop import Output, Picture, WaylandDesktop

# All outputs of a KWin without a screen have one size.
A = Output("Virtual-0", 1600, 1000, 2)
B = Output("Virtual-1", 1600, 1000, 1, A.right)
GRANT = "X-KDE-DBUS-Restricted-Interfaces=org.kde.KWin.ScreenShot2"


class KWin(WaylandDesktop):
    name = "KDE"
    variables = {"KDE_FULL_SESSION": "true", "KDE_SESSION_VERSION": "5", "KSCREEN_BACKEND_INPROCESS": "1",
                 "WAYLAND_DISPLAY": "wayland-test"}

    def __init__(self, outputs=(A, B), granted=True):
        self.granted = granted
        super().__init__(outputs, bus=True)

    def _start_compositor(self):
        self._install("hand", self.helpers / "wayland-hand", "X-KDE-Wayland-Interfaces=org_kde_kwin_fake_input")
        self._install("look", self.helpers / "wayland-look", GRANT)
        if self.granted:
            entry = (Path(self.program).parent / f"share/applications/{ID}.desktop").read_text("utf-8")
            self._write(ID, entry.replace("\nExec=vellumora", f'\nExec="{self.program}"'))
        process = Process(self, "kwin", [
            without_capability(), "--virtual", "--width", str(self.outputs[0].width), "--height", str(self.outputs[0].height),
            "--output-count", str(len(self.outputs)), "--no-lockscreen", "--socket", "wayland-test"], WAYLAND_DISPLAY="")
        wait_for((self.folder / "run/wayland-test").exists, "KWin")
        self.arrange()
        return process

    def _install(self, name, program, grant):
        self._write(name, f"[Desktop Entry]\nType=Application\nName={name}\nExec={program}\n{grant}\n")

    def _write(self, name, entry):
        folder = self.home / ".local/share/applications"
        folder.mkdir(parents=True, exist_ok=True)
        (folder / f"{name}.desktop").write_text(entry, "utf-8")

    def arrange(self):
        """Gives the outputs their scales and places."""
        words = [word for i, output in enumerate(self.outputs, 1)
                 for word in (f"output.{i}.scale.{output.scale}", f"output.{i}.position.{round(output.x)},{round(output.y)}")]
        return self.run("kscreen-doctor", *words)

    def look(self, output):
        path = self.folder / "look.ppm"
        path.unlink(missing_ok=True)

        def taken():
            """KWin refuses while it arranges its outputs."""
            self.run(str(self.helpers / "wayland-look"), "kwin", output.name, str(path))
            return path.exists()

        wait_for(taken, f"a picture of {output.name}")
        return Picture(path.read_bytes())


def without_capability():
    """A copy of KWin without the right to a higher priority, which not every machine can give."""
    if not without_capability.copy:
        folder = Path(tempfile.mkdtemp(prefix="vellumora-test-kwin-"))
        atexit.register(shutil.rmtree, folder, ignore_errors=True)
        without_capability.copy = folder / "kwin_wayland"
        shutil.copyfile(shutil.which("kwin_wayland"), without_capability.copy)
        without_capability.copy.chmod(0o755)
    return str(without_capability.copy)


without_capability.copy = None
