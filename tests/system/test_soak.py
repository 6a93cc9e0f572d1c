"""A long day of the program: what it holds does not grow, a kill leaves the desktop as it was, and it sleeps when nobody wants
anything. Short where every change is tried; VELLUMORA_SOAK=long takes a quarter of an hour."""
import os
import random
import re
import threading
import time
import unittest
from pathlib import Path

from case import SystemTest
from desktop import HELPERS, wait_for

LONG = os.environ.get("VELLUMORA_SOAK") == "long"
WARMING = 5  # captures until everything that is kept has been made
CAPTURES = 500 if LONG else 20
KILLS = 20 if LONG else 4
IDLE = 60 if LONG else 5  # seconds
SEED = int(os.environ.get("VELLUMORA_SEED", random.randrange(1 << 30)))

MAY_GROW = 1000  # kB: the allocator's holes; a single picture of a selection that stays would be as much as that
CORNER, OTHER_CORNER = (2120, 100), (2620, 500)


def capture(desktop, mark):
    """Sends a whole session, whether or not anybody is there to take it."""
    desktop.drag(CORNER, OTHER_CORNER)
    desktop.key(mark)
    desktop.drag((2150, 150), (2450, 400))
    desktop.key("Return")


def segments_of(pid):
    """The numbers of the segments of shared memory that the process has made."""
    lines = [line.split() for line in Path("/proc/sysvipc/shm").read_text("ascii").splitlines()[1:]]
    return {line[1] for line in lines if int(line[4]) == pid}


def at_the_server(server, segments):
    """What is in each of these, as the server sees it."""
    for line in Path(f"/proc/{server}/maps").read_text("utf-8").splitlines():
        place, _, _, _, number, *name = line.split()
        if number in segments and name and name[0].startswith("/SYSV"):
            begin, end = (int(address, 16) for address in place.split("-"))
            with open(f"/proc/{server}/mem", "rb") as memory:
                memory.seek(begin)
                yield memory.read(end - begin)


def switches(pid):
    """How often each thread has gone to sleep or was sent there."""
    counts = {}
    for task in Path(f"/proc/{pid}/task").iterdir():
        try:
            status = (task / "status").read_text("utf-8")
        except FileNotFoundError:
            continue  # it has ended meanwhile
        counts[task.name] = sum(map(int, re.findall(r"ctxt_switches:\s+(\d+)", status)))
    return counts


class Held:
    """What the program holds, here and at the X server."""

    def __init__(self, desktop, program):
        pid, server = program.process.pid, desktop.server.pid
        rollup = Path(f"/proc/{pid}/smaps_rollup").read_text("ascii")
        self.memory = int(re.search(r"Private_Dirty:\s+(\d+)", rollup)[1])  # kB
        self.counts = {"descriptors": len(os.listdir(f"/proc/{pid}/fd")), "segments": len(segments_of(pid)),
                       "the server's descriptors": len(os.listdir(f"/proc/{server}/fd")),
                       "the server's shared memory": len(re.findall("/SYSV|/memfd", Path(f"/proc/{server}/maps").read_text("utf-8")))}
        for client in re.split(r"\n(?=\d+ - )", desktop.run("xrestop", "-b", "-m", "1")):
            if "Vellumora" in client.split("\n")[0]:
                kinds = re.findall(r"^\s+(windows|GCs|pixmaps|pictures|colormaps|passive grabs|cursors|unknowns|pixmap bytes)\s*: (\d+)",
                                   client, re.M)
                self.counts |= {f"X {kind}": int(count) for kind, count in kinds}

    def within(self, former):
        return self.memory <= former.memory + MAY_GROW and all(self.counts[kind] <= former.counts[kind] for kind in former.counts)

    def __str__(self):
        return f"{self.memory} kB, {self.counts}"


class Soak(SystemTest):
    window_manager = "openbox"

    def captures(self, desktop, times):
        for i in range(times):
            desktop.xdotool("mousemove", *CORNER)
            desktop.press_shortcut()
            before = desktop.log().count("copiado")
            capture(desktop, "prxm"[i % 4])
            wait_for(lambda: desktop.log().count("copiado") > before, "the copy")
            desktop.wait_until_over()

    def test_many_captures_leave_nothing_behind(self):
        desktop = self.desktop
        desktop.witness((0, 0, 3520, 900))
        program = desktop.start()
        self.captures(desktop, WARMING)
        former = self.at_rest(program)
        self.assertIn("X windows", former.counts)
        kept = list(at_the_server(desktop.server.pid, segments_of(program.process.pid)))
        self.assertEqual((len(kept), sum(map(any, kept))), (2, 0), "the pictures of two screens, wiped out")
        self.captures(desktop, CAPTURES // 2)
        self.restart_window_manager()
        self.captures(desktop, CAPTURES - CAPTURES // 2)
        last = [None]

        def given_back():
            last[0] = Held(desktop, program)
            return last[0].within(former)

        try:
            wait_for(given_back, "what has been taken to be given back")
        except AssertionError:
            self.fail(f"{former} has grown to {last[0]}")
        if LONG:
            print(f"\n{CAPTURES} captures: {former} -> {last[0]}")

    def at_rest(self, program):
        """What is held once it has stopped falling."""
        seen = [Held(self.desktop, program)]

        def falls_no_more():
            time.sleep(0.5)
            seen.append(Held(self.desktop, program))
            return len(seen) > 4 and seen[-1].memory >= seen[-4].memory

        wait_for(falls_no_more, "a rest")
        return seen[-1]

    def restart_window_manager(self):
        desktop = self.desktop
        manager = next(process for process in desktop.processes if process.process.args[0] == self.window_manager)
        manager.end()
        desktop.start_window_manager(self.window_manager)

    def test_a_window_manager_that_restarts_in_a_session_disturbs_nothing(self):
        desktop = self.desktop
        desktop.witness((0, 0, 3520, 900))
        program = desktop.start()
        area = (*CORNER, 500, 400)
        wanted = desktop.pixels(area)
        desktop.xdotool("mousemove", *CORNER)
        desktop.press_shortcut()
        self.restart_window_manager()
        desktop.drag(CORNER, OTHER_CORNER)
        desktop.key("Return")
        wait_for(lambda: "copiado 500x400" in desktop.log(), "the copy")
        desktop.wait_until_over()
        self.assert_same_pixels(desktop.pixels_of(desktop.clipboard("png")), wanted)
        self.assertTrue(program.running())

    def test_a_kill_leaves_the_desktop_as_it_was(self):
        desktop = self.desktop
        desktop.witness((0, 0, 3520, 900))
        chance = random.Random(SEED)
        area = (*CORNER, 500, 400)
        wanted = desktop.pixels(area)
        for i in range(KILLS):
            with self.subTest(seed=SEED, kill=i):
                program = desktop.start()
                wait = chance.uniform(0, 0.8)  # seconds, of a session that takes about one
                killer = threading.Timer(wait, program.process.kill)
                killer.start()
                desktop.xdotool("mousemove", *CORNER)
                desktop.key("shift+super+x")
                capture(desktop, "p")
                killer.join()
                program.process.wait()
                for device in ("--keyboard", "--pointer"):
                    self.assertEqual(desktop.run(HELPERS / "witness", device), "held 0\n")
                self.assertEqual(desktop.overlays(), [])
                wait_for(lambda: desktop.pixels(area) == wanted, "the screen as it was")
                self.assertEqual(segments_of(program.process.pid), set())
        desktop.start()
        desktop.xdotool("mousemove", *CORNER)
        desktop.press_shortcut()
        desktop.drag(CORNER, OTHER_CORNER)
        before = desktop.log().count("copiado")
        desktop.key("Return")
        wait_for(lambda: desktop.log().count("copiado") > before, "the copy")
        desktop.wait_until_over()
        self.assert_same_pixels(desktop.pixels_of(desktop.clipboard("png")), wanted)

    def test_a_lock_without_an_owner_does_not_keep_the_settings_from_being_written(self):
        desktop = self.desktop
        desktop.store()
        settings = desktop.home / ".config/Vellumora/Vellumora.conf"
        settings.with_suffix(".conf.lock").touch()  # its owner was killed before it could say who it is
        desktop.start()
        desktop.press_shortcut()
        desktop.drag(CORNER, OTHER_CORNER)
        desktop.key("p")
        way = [word for step in range(60) for word in ("mousemove", 2150 + 5 * step, 150 + 3 * step)]
        desktop.xdotool(*way[:3], "mousedown", 1, *way[3:], "mouseup", 1)  # shows a tip, and counts that
        wait_for(lambda: "pistaFiguras" in settings.read_text("utf-8"), "the setting")

    def test_idle_it_sleeps(self):
        desktop = self.desktop
        program = desktop.start()
        self.captures(desktop, 2)
        pid = program.process.pid
        seen = [(time.monotonic(), switches(pid))]

        def slept():
            time.sleep(0.5)
            now = switches(pid)
            if any(now[task] != seen[0][1].get(task) for task in now):
                seen[0] = (time.monotonic(), now)
            return time.monotonic() - seen[0][0] > IDLE

        # What a capture and the start have put off is still to come, and threads that were needed end.
        wait_for(slept, f"{IDLE} seconds without a wake-up", patience=60 + IDLE)


if __name__ == "__main__":
    unittest.main()
