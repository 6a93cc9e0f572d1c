#!/usr/bin/env python3
"""What can go wrong around an update, tried with whole bundles. Run by hand, since it takes minutes and partly needs an
administrator:

    VELLUMORA=build/release/vellumora VELLUMORA_HELPERS=build/release/tests tests/system/by_hand/attack_updates.py"""
import os
import shutil
import signal
import socket
import subprocess
import sys
import time
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parents[1]))
import desktop  # noqa: E402
from desktop import PROGRAM, Process, wait_for  # noqa: E402
from test_shell import TrayOnTheBus  # noqa: E402
from test_update import NEW, OLD, Update as Updates  # noqa: E402
from kill_updates import contents  # noqa: E402

desktop.PATIENCE = 120  # seconds; a swap of whole bundles takes its time
UPDATES_AT_ONCE = int(os.environ.get("UPDATES", "5"))
SCRIPTS_AT_ONCE = int(os.environ.get("SCRIPTS", "40"))


class Update(Updates):
    """Only its tools: the tests themselves run elsewhere."""

    def unattended(self, **environment):
        return self.start_old(VELLUMORA_PRUEBA_ACTUALIZAR="1", **self.other_session(), **environment)

    def begin_anew(self):
        self.end_reopened()
        wait_for(lambda: not self.running(), "the end of all")
        # What sweeps up may still be at it.
        wait_for(lambda: shutil.rmtree(self.place, True) or not self.place.exists(), "an empty place")
        self.bundle_of(OLD, self.place)
        (self.desktop.home / "Library/Logs/Vellumora.log").unlink(missing_ok=True)

    def script(self):
        """The text of a swap and the process that runs it, which waits for ever: nobody takes note of the program's end. It has
        a group of its own; what it waits with holds the folder like itself."""
        self.unattended()
        self.wait_for_log("instalando")
        for process in Path("/proc").glob("[0-9]*"):
            try:
                words = (process / "cmdline").read_bytes().split(b"\0")
            except OSError:
                continue
            if words[:2] == [b"/bin/sh", b"-c"] and str(self.bundle).encode() in words[2]:
                return words[2].decode(), int(process.name)
        raise AssertionError("no script")

    def test_two_instances_at_once(self):
        for _ in range(UPDATES_AT_ONCE):
            self.begin_anew()
            both = [self.unattended() for _ in range(2)]
            wait_for(lambda: not all(old.running() for old in both), "the end of one")
            self.wait_for_log(f"web {NEW}, instalada {NEW}")
            self.assertEqual(self.desktop.log().count("otra actualizacion en curso"), 1)
            self.assertEqual(contents(self.bundle), self.new)
            for old in both:
                old.end()

    def test_two_copies_of_the_script(self):
        text, process = self.script()
        (work,) = self.temporary.iterdir()
        saved = self.desktop.folder / "saved"
        shutil.copytree(work, saved, symlinks=True)
        os.killpg(process, signal.SIGKILL)
        for old in self.desktop.processes:
            old.process.poll()
        for number in range(SCRIPTS_AT_ONCE):
            self.begin_anew()
            shutil.rmtree(work, ignore_errors=True)
            shutil.copytree(saved, work, symlinks=True)
            one = subprocess.Popen(["/bin/sh", "-c", text], env=self.desktop.environment, stderr=subprocess.DEVNULL)
            time.sleep(0.2 * number / SCRIPTS_AT_ONCE)
            other = subprocess.Popen(["/bin/sh", "-c", text], env=self.desktop.environment, stderr=subprocess.DEVNULL)
            one.wait()
            other.wait()
            wait_for(self.running, "the new version")
            self.assertEqual(contents(self.bundle), self.new, f"{number} of {SCRIPTS_AT_ONCE}")

    def test_a_script_that_dies_is_told_about_once(self):
        _, process = self.script()
        os.killpg(process, signal.SIGKILL)
        self.desktop.processes[-1].status()
        for alerts in (1, 0):
            self.desktop.home.joinpath("Library/Logs/Vellumora.log").unlink()
            again = self.start_old(DBUS_SESSION_BUS_ADDRESS="")
            self.wait_for_log("registro de atajo")
            if alerts:
                self.wait_for_log(f"fallo (Couldn't download or install (Vellumora {NEW}).)")
                wait_for(lambda: self.desktop.windows("^Vellumora$"), "the alert")
            else:
                self.wait_for_log(f"actualizacion: {NEW} aplazada")
                self.assertNotIn("fallo", self.desktop.log())
            self.assertEqual(os.listdir(self.place) + os.listdir(self.temporary), [self.bundle.name])
            again.end()

    @unittest.skipIf(os.getuid(), "only an administrator can mount")
    def test_file_systems(self):
        def mount(*options):
            subprocess.run(["mount", *options, self.place], check=True)
            self.addCleanup(subprocess.run, ["umount", "-l", self.place], check=False)

        size = sum(file.stat().st_size for file in self.bundle.rglob("*") if file.is_file())
        layers = [self.desktop.folder / name for name in ("lower", "upper", "inner")]
        with self.subTest("too small for two bundles"):
            mount("-t", "tmpfs", "-o", f"size={size * 3 // 2}", "small")
            self.bundle_of(OLD, self.place / "x").rename(self.bundle)
            (self.place / "x").rmdir()
            self.server.served.clear()
            old = self.unattended()
            self.wait_for_log("fallo (")
            self.assertIn("No space left on device", self.desktop.log())
            self.assertNotIn("/new.tar", self.server.served)
            old.end()
            subprocess.run(["umount", self.place], check=True)
        with self.subTest("layers"):
            self.begin_anew()
            shutil.move(self.place, layers[0])
            for folder in (self.place, *layers[1:]):
                folder.mkdir()
            mount("-t", "overlay", "-o", "lowerdir={},upperdir={},workdir={}".format(*layers), "layers")
            old = self.unattended()
            # What lies in a lower layer cannot be renamed; what has been unpacked above can.
            self.wait_for_log("Invalid cross-device link")
            self.assertEqual(contents(self.bundle), self.old)
            old.end()
            moved = self.bundle_of(OLD, self.desktop.folder / "again")
            shutil.rmtree(self.bundle)
            shutil.move(moved, self.bundle)
            (self.desktop.home / "Library/Logs/Vellumora.log").unlink()
            self.unattended().status()
            self.wait_for_log(f"web {NEW}, instalada {NEW}")
            self.assertEqual(contents(self.bundle), self.new)

    def setUp(self):
        super().setUp()
        self.old = contents(self.bundle)
        self.new = contents(self.bundle_of(NEW, self.desktop.folder / "whole"))


class Proxies(TrayOnTheBus):
    """The network's script about proxies is asked for and never comes."""
    window_manager = "openbox"

    def setUp(self):
        super().setUp()
        self.silent = socket.create_server(("127.0.0.1", 0))
        self.addCleanup(self.silent.close)
        self.desktop.store(urlActualizacion="https://vellumora.example/actualizacion.json")
        script = f"pac+http://127.0.0.1:{self.silent.getsockname()[1]}/proxies"
        tray = self.panel()
        self.program = Process(self.desktop, "vellumora", [PROGRAM], https_proxy=script, http_proxy=script)
        self.item = tray.says("item").split()[1]
        connection, _ = self.silent.accept()
        self.addCleanup(connection.close)

    def test_a_search_that_hangs_holds_nothing_up(self):
        self.desktop.press_shortcut()
        self.desktop.key("Escape")
        self.desktop.wait_until_over()
        began = time.monotonic()
        self.choose(self.item, "Quit Vellumora")
        self.assertEqual(self.program.status(), 0)
        print(f"ended {time.monotonic() - began:.1f} s after being asked to")

    def test_a_search_that_hangs_ends_the_check(self):
        began = time.monotonic()
        time.sleep(10)
        wait_for(lambda: "sin conexion o error (Socket operation timed out)" in self.desktop.log(), "the end of the check")
        print(f"given up after {time.monotonic() - began:.1f} s")


if __name__ == "__main__":
    suite = unittest.TestSuite()
    for name in sorted(vars(Update)):
        if name.startswith("test_"):
            suite.addTest(Update(name))
    for name in sorted(vars(Proxies)):
        if name.startswith("test_"):
            suite.addTest(Proxies(name))
    sys.exit(not unittest.TextTestRunner(verbosity=2).run(suite).wasSuccessful())
