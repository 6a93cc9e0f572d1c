"""What users install: the Debian package, and the bundle that makes itself known to its user's desktop."""
import os
import re
import shutil
import signal
import subprocess
import tempfile
import unittest
from pathlib import Path

from case import SystemTest
from desktop import ID, PROGRAM, wait_for

BUILD = Path(PROGRAM).parent
PACKAGING = Path(__file__).parents[2] / "packaging"
OBJECT = "/" + ID.replace(".", "/")


class DebianPackage(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = Path(tempfile.mkdtemp(prefix="vellumora-test-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder, True)
        cls.package = cls.said(PACKAGING / "make-deb", BUILD, cls.folder).strip()

    @staticmethod
    def said(*command):
        done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
        if done.returncode != 0:
            raise AssertionError(done.stdout)
        return done.stdout

    def test_debians_own_critic_has_nothing_to_say(self):
        self.assertEqual(self.said("lintian", "--allow-root", "--fail-on", "error,warning", self.package), "")

    def test_it_keeps_to_usr_and_runs_no_scripts(self):
        paths = [line.split()[5] for line in self.said("dpkg-deb", "--contents", self.package).splitlines()]
        self.assertEqual([path for path in paths if not path.startswith("./usr/")], [])
        files = self.folder / "files"
        self.said("dpkg-deb", "--raw-extract", self.package, files)
        self.assertEqual(sorted(os.listdir(files / "DEBIAN")), ["control", "md5sums"])
        for needed in ("qt6-wayland", "libqt6svg6", "libqt6network6", "libqt6printsupport6", "libqt6widgets6", "libxcb1"):
            self.assertRegex((files / "DEBIAN/control").read_text("utf-8"), rf"\nDepends: .*\b{needed}\b")
        loaded = self.said("env", "LD_DEBUG=files", files / "usr/bin/vellumora", "--version")
        self.assertRegex(loaded, rf"file={files}/usr/bin/../lib/[^ ]+/vellumora/libvellumora.so ")
        for name in (f"applications/{ID}.desktop", f"dbus-1/services/{ID}.service"):
            self.assertIn("\nExec=/usr/bin/vellumora\n", (files / "usr/share" / name).read_text("utf-8"))


class Archive(unittest.TestCase):
    def test_it_is_the_same_wherever_whenever_and_by_whomever_it_is_made(self):
        folder = Path(tempfile.mkdtemp(prefix="vellumora in  a place -"))
        self.addCleanup(shutil.rmtree, folder, True)
        shutil.copytree(PACKAGING, folder / "packaging")
        moved = folder / "build x"
        moved.mkdir()
        for name in ("vellumora", "vellumora-exchange", "libvellumora.so"):
            shutil.copy(BUILD / name, moved)
        shutil.copytree(BUILD / "share", moved / "share", copy_function=shutil.copy)
        environment = {**os.environ, "SOURCE_DATE_EPOCH": "1000000000", "XZ_OPT": "-0"}
        for tools, build, output, mask, zone in ((PACKAGING, BUILD, folder / "one", 0o022, "UTC"),
                                                 (folder / "packaging", "build x", "the other", 0o077, "Asia/Tokyo")):
            subprocess.run([tools / "make-bundle", build, output], check=True, cwd=folder, umask=mask,
                           env={**environment, "TZ": zone}, stdout=subprocess.DEVNULL)
        one, other = ((folder / output / "Vellumora.tar.xz").read_bytes() for output in ("one", "the other"))
        self.assertTrue(one == other)


class RegisteredBundle(SystemTest):
    def setUp(self):
        super().setUp()
        # The bus would look into the home folder that the user's account has.
        self.desktop.environment["XDG_DATA_HOME"] = str(self.desktop.home / ".local/share")
        self.desktop.start_bus()
        # All of a bundle but the libraries, for which the system's do here.
        self.bundle = self.desktop.folder / 'a "quoted" place, 100% $HOME/Vellumora.app'
        for folder in ("bin", "lib"):
            (self.bundle / folder).mkdir(parents=True)
        shutil.copy2(PROGRAM, self.bundle / "bin")
        shutil.copy2(BUILD / "libvellumora.so", self.bundle / "lib")
        shutil.copytree(BUILD / "share", self.bundle / "share")
        shutil.copy2(PACKAGING / "register", self.bundle)
        self.home = self.desktop.home
        self.menu = self.home / f".local/share/applications/{ID}.desktop"
        self.autostart = self.home / f".config/autostart/{ID}.desktop"
        self.addCleanup(self.end_started)

    def register(self, *options):
        done = subprocess.run([self.bundle / "register", *options], env=self.desktop.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True, check=False)
        self.assertEqual(done.returncode, 0, done.stdout)
        return done.stdout

    def ask(self, method, *arguments):
        return self.desktop.run("gdbus", "call", "--session", "-d", ID, "-o", OBJECT, "-m", f"org.freedesktop.Application.{method}",
                                *arguments, "{}")

    def started(self):
        """The process that has the name on the bus; none without one."""
        said = self.desktop.run("gdbus", "call", "--session", "-d", "org.freedesktop.DBus", "-o", "/", "-m",
                                "org.freedesktop.DBus.GetConnectionUnixProcessID", ID)
        return int(found[1]) if (found := re.search(r"uint32 (\d+)", said)) else None

    def end_started(self):
        if process := self.started():
            os.kill(process, signal.SIGTERM)
            wait_for(lambda: not self.started(), "the end of the program")

    def left(self):
        return {str(path.relative_to(self.home)) for path in self.home.rglob("*") if path.is_symlink() or path.is_file()}

    def test_the_bus_starts_it_for_each_action(self):
        self.assertEqual(self.register(), "")
        self.assertEqual(self.ask("ActivateAction", "capture", "[]"), "()\n")
        self.desktop.wait_for_overlays()
        self.assertEqual(os.readlink(f"/proc/{self.started()}/exe"), str(self.bundle / "bin/vellumora"))
        self.escape()
        self.assertEqual(self.ask("ActivateAction", "unknown", "[]"), "")
        self.end_started()
        self.assertEqual(self.ask("Activate"), "()\n")
        wait_for(lambda: self.desktop.windows("^Vellumora Settings$"), "the settings")

    def test_a_moved_bundle_takes_its_entries_along_and_all_of_them_back(self):
        before = self.left()
        self.assertEqual(self.register("--autostart"), "")
        first = self.left()
        self.assertEqual(self.desktop.run("desktop-file-validate", self.menu, self.autostart), "")
        self.autostart.write_text(self.autostart.read_text("utf-8") + "Hidden=true\n", "utf-8")
        self.bundle = self.bundle.rename(self.desktop.folder / "Vellumora.app")
        for _ in range(2):
            self.assertEqual(self.register(), "")
            self.assertEqual(self.left(), first)
            for entry in (self.menu, self.autostart):
                self.assertIn(f'\nExec="{self.bundle}/bin/vellumora"\n', entry.read_text("utf-8"))
        self.assertIn("Hidden=true", self.autostart.read_text("utf-8"))
        self.assertTrue(all((self.home / path).exists() for path in first))
        self.assertEqual(self.desktop.run(str(self.home / ".local/bin/vellumora"), "--version")[:10], "Vellumora ")
        self.register("--remove")
        self.assertEqual(self.left(), before)

    def test_what_is_not_its_own_stays(self):
        self.menu.parent.mkdir(parents=True)
        self.menu.write_text("[Desktop Entry]\n", "utf-8")
        command = self.home / ".local/bin/vellumora"
        command.parent.mkdir(parents=True)
        command.symlink_to("/bin/true")
        for options in ([], ["--remove"]):
            self.assertIn(f"{self.menu} is not of a bundle", self.register(*options))
            self.assertEqual(self.menu.read_text("utf-8"), "[Desktop Entry]\n")
            self.assertEqual(os.readlink(command), "/bin/true")


if __name__ == "__main__":
    unittest.main()
