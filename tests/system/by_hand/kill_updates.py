#!/usr/bin/env python3
"""Kills whole updates at random moments and looks at what is left. Run by hand, since it takes half an hour:

    VELLUMORA=build/release/vellumora VELLUMORA_HELPERS=build/release/tests tests/system/by_hand/kill_updates.py [KILLS]

Every time the bundle has to be the old one or the new one, whole; the next start has to come up, and to remove what
the dead update has left behind."""
import hashlib
import os
import random
import shutil
import signal
import sys
import time
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parents[1]))
import desktop  # noqa: E402
from desktop import wait_for  # noqa: E402
from test_update import NEW, OLD, Update  # noqa: E402

desktop.PATIENCE = 120  # seconds; many of these may run at once
KILLS = int(sys.argv.pop()) if sys.argv[-1].isdigit() else 200
WHOLE = 5.0  # seconds from the beginning of an update to well after its end
SWAP = 1.5  # seconds from the beginning of the swap to well after its end


def contents(folder):
    """A digest of all names, rights and contents."""
    digest = hashlib.sha256()
    for path in sorted(folder.rglob("*")):
        digest.update(f"{path.relative_to(folder)} {path.lstat().st_mode:o}\n".encode())
        if path.is_file():
            digest.update(path.read_bytes())
    return digest.hexdigest()


class Kills(Update):
    def marked(self):
        """Everything that this test has started, the script and its tools included."""
        mark = f"VELLUMORA_TEST={id(self)}".encode()
        for process in Path("/proc").glob("[0-9]*"):
            try:
                if mark in (process / "environ").read_bytes().split(b"\0"):
                    yield int(process.name)
            except OSError:
                pass

    def kill_everything(self):
        """Until it is seen three times that there is nothing: a process whose parent ends while one looks is not in the list
        yet, and one that turns into another program has no environment for a moment."""
        unseen = 0
        while unseen < 3:
            found = list(self.marked())
            unseen = 0 if found else unseen + 1
            for process in found:
                try:
                    os.kill(process, signal.SIGKILL)
                except ProcessLookupError:
                    pass
            for process in self.desktop.processes:
                process.process.poll()

    def start(self, **environment):
        log = self.desktop.home / "Library/Logs/Vellumora.log"
        log.unlink(missing_ok=True)
        return self.start_old(VELLUMORA_TEST=str(id(self)), DBUS_SESSION_BUS_ADDRESS="", **environment)

    def die(self, line, after):
        """Which bundle is there after a kill that many seconds after a line in the log."""
        shutil.rmtree(self.place)
        self.config.write_text(self.settings)  # or a version that failed before would be put off
        self.bundle_of(OLD, self.place)
        old = self.start(VELLUMORA_PRUEBA_ACTUALIZAR="1")
        self.wait_for_log(line)
        end = time.monotonic() + after
        while time.monotonic() < end:
            old.process.poll()  # or the script would wait for it
            time.sleep(0.001)
        self.kill_everything()
        return self.whole.get(contents(self.bundle), f"DAMAGED {after} s after {line}")

    def recover(self):
        started = self.start()
        self.wait_for_log("registro de atajo")
        wait_for(lambda: os.listdir(self.place) == [self.bundle.name], f"the bundle alone: {os.listdir(self.place)}")
        wait_for(lambda: not os.listdir(self.temporary), f"an empty folder: {os.listdir(self.temporary)}")
        self.assertTrue(started.running())
        self.kill_everything()

    def test_kills(self):
        self.config = self.desktop.home / ".config/Vellumora/Vellumora.conf"
        self.settings = self.config.read_text()
        new = self.bundle_of(NEW, self.desktop.folder / "new")
        self.whole = {contents(self.bundle): "old", contents(new): "new"}
        chance = random.Random(KILLS)
        left = {}
        for number in range(KILLS):
            line, longest = (f"web {NEW}", WHOLE) if number % 2 else ("instalando", SWAP)
            found = self.die(line, chance.uniform(0, longest))
            half = [path for path in os.listdir(self.place) + os.listdir(self.temporary) if path != self.bundle.name]
            key = found + (" with leftovers" if half else "")
            left[key] = left.get(key, 0) + 1
            self.assertIn(found, ("old", "new"))
            self.recover()
            print(number + 1, line, key, flush=True)
        print(left)


if __name__ == "__main__":
    suite = unittest.TestSuite([Kills("test_kills")])
    sys.exit(not unittest.TextTestRunner().run(suite).wasSuccessful())
