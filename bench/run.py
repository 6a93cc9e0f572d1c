#!/usr/bin/env python3
"""Runs every benchmark and prints one table: what was measured, what it is held against in the same run, and the budget.

Times are medians in milliseconds. Ratios travel between machines, times do not."""
import json
import os
import statistics
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BUILD = ROOT / "build/release"
os.environ.setdefault("VELLUMORA", str(BUILD / "vellumora"))
os.environ.setdefault("VELLUMORA_HELPERS", str(BUILD / "tests"))
sys.path.insert(0, str(ROOT / "tests/system"))
sys.path.insert(0, str(ROOT / "bench/capture"))
from desktop import Desktop  # noqa: E402
from wayland_desktop import Output  # noqa: E402
import wayland_log  # noqa: E402
from wayland_sway import Sway  # noqa: E402

MONITORS = ((0, 0, 3840, 2160), (3840, 0, 1920, 1080))
REPETITIONS = 5
STANDING = 20  # seconds that a selection is watched


def google(program, **environment):
    """Median milliseconds and counters of every row of a Google Benchmark program."""
    done = subprocess.run([BUILD / "bench" / program, "--benchmark_format=json", f"--benchmark_repetitions={REPETITIONS}",
                           "--benchmark_report_aggregates_only=true"],
                          env={**os.environ, **environment}, stdout=subprocess.PIPE, check=True)
    unit = {"ns": 1e-6, "us": 1e-3, "ms": 1.0}
    rows = {}
    for row in json.loads(done.stdout)["benchmarks"]:
        if row.get("aggregate_name") == "median":  # what there is not has failed, and has none
            name = row["run_name"].removesuffix("/real_time")
            rows[name] = {**row, "time": row["real_time"] * unit[row["time_unit"]]}
    return rows


def latency(desktop, *arguments):
    median, high = desktop.run(str(BUILD / "bench/latency"), *map(str, arguments)).split()
    return float(median), float(high)


def row(name, measured, against="", ratio="", budget=""):
    print(f"{name:44} {measured:>22} {against:>30} {ratio:>9}  {budget}", flush=True)


def ratio_row(name, measured, baseline, baseline_name, budget=""):
    row(name, f"{measured:.2f} ms", f"{baseline_name} {baseline:.2f} ms", f"{measured / baseline:.2f}", budget)


def on_a_display():
    desktop = Desktop("openbox", monitors=MONITORS)
    try:
        rows = google("BenchCapture", **desktop.environment)
        capture, copy, toolkit = (rows[name]["time"] for name in ("capture", "memcpy", "grabWindow"))
        ratio_row("capture, 4K + 1080p", capture, copy, "memcpy")
        ratio_row("", capture, toolkit, "grabWindow")
        ratio_row("of 50 windows, where they are", rows["windows"]["time"], capture, "capture", "<= 0.1")
        desktop.run("xsetroot", "-solid", "#6688aa")
        desktop.witness((0, 0, 5760, 1080))
        desktop.start()
        median, high = latency(desktop, "shortcut", 100, 1900, 3940, 100)
        row("shortcut -> both overlays painted", f"{median:.1f} (p95 {high:.1f}) ms", f"memcpy {copy:.2f} ms",
            f"{median / copy:.1f}", "<= 120 ms")
        second, high = latency(desktop, "start", 100, 1900, 3940, 100, os.environ["VELLUMORA"])
        row("second start -> both overlays painted", f"{second:.1f} (p95 {high:.1f}) ms", f"shortcut {median:.1f} ms",
            f"{second / median:.2f}", "<= 15 ms more")
        for name, where in (("4K", (100, 100, 3600)), ("1080p", (3900, 100, 1700))):
            median, high = latency(desktop, "drag", *where)
            row(f"drag step -> pixels, {name}", f"{median:.2f} (p95 {high:.2f}) ms", f"memcpy {copy:.2f} ms",
                f"{median / copy:.1f}", "<= 4 ms, p95 <= 12 ms")
        for mode, name in (("loupe", "loupe step, 4K"), ("draw", "rectangle step over 200 strokes, 4K")):
            median, high = latency(desktop, mode, 100, 100, 3600)
            row(name, f"{median:.2f} (p95 {high:.2f}) ms", f"memcpy {copy:.2f} ms", f"{median / copy:.1f}",
                "<= 4 ms, p95 <= 12 ms")
    finally:
        desktop.close()


def on_sway():
    """Sway draws in memory sixty times a second, so nothing shorter than a frame of it can be watched from outside."""
    dense = Output("HEADLESS-1", 3840, 2160, 2)
    desktop = Sway((dense, Output("HEADLESS-2", 1920, 1080, 1, dense.right)))
    try:
        rows = google("BenchCapture", QT_QPA_PLATFORM="wayland", **desktop.environment)
        ratio_row("capture on sway, 4K + 1080p", rows["capture"]["time"], rows["memcpy"]["time"], "memcpy", "<= 2")
        desktop.witnesses()
        desktop.start()
        handed = []
        for _ in range(11):
            begun = time.monotonic()
            desktop.run(desktop.program, "--capturar")
            handed.append(1000 * (time.monotonic() - begun))
            desktop.wait_for_overlays()
            desktop.key("Escape")
            desktop.wait_until_over()
        nothing = time.monotonic()
        desktop.run("true")
        row("second start on sway, until it has handed over", f"{statistics.median(handed):.1f} ms",
            f"a program that does nothing {1000 * (time.monotonic() - nothing):.1f} ms", "", "<= 30 ms")
    finally:
        desktop.close()
    painting_on_sway(dense, rows["memcpy"]["time"])


def painting_on_sway(dense, copy):
    """Until the picture has been handed to the compositor, as the program's own messages to it tell."""
    desktop = Sway((dense, Output("HEADLESS-2", 1920, 1080, 1, dense.right)))
    try:
        desktop.witnesses()
        program = desktop.start(WAYLAND_DEBUG="client")
        painted, moved = [], []
        for _ in range(9):
            begun = wayland_log.now()
            desktop.run(desktop.program, "--capturar")
            desktop.wait_for_overlays()
            painted.append(max(wayland_log.first_pictures(wayland_log.messages(program.output, begun))) - begun)
            desktop.pull([(400, 300), (420, 310)])
            begun = wayland_log.now()
            for step in range(30):
                desktop.move_to((800 + 60 * step, 500 + 40 * step))
                time.sleep(0.04)  # so that no step waits for a frame of the compositor
            log = wayland_log.messages(program.output, 0)
            surfaces = [surface for surface in wayland_log.layers(log)][-2:]
            recent = [message for message in log if message.time >= begun]
            moved += max((wayland_log.steps(recent, surface) for surface in surfaces), key=len)
            desktop.button(False)
            desktop.key("Escape")
            desktop.wait_until_over()
        ratio_row("second start on sway -> both pictures handed over", statistics.median(painted), copy, "memcpy", "<= 150 ms")
        high = sorted(moved)[len(moved) * 95 // 100]
        row("drag step on sway -> picture handed over, 4K", f"{statistics.median(moved):.2f} ms (p95 {high:.1f})",
            f"memcpy {copy:.2f} ms", f"{statistics.median(moved) / copy:.2f}", "<= 6 ms")
    finally:
        desktop.close()


def processor_time(process):
    """Seconds of a process and the kernel on its behalf."""
    fields = Path(f"/proc/{process.process.pid}/stat").read_text("utf-8").rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def standing(copy):
    """What a selection costs that only stands there, its pointer outside, with nothing but the glow turning."""
    desktop = Desktop("openbox", monitors=MONITORS, scales=(1, 1))
    try:
        desktop.run("xsetroot", "-solid", "#6688aa")
        program = desktop.start()
        desktop.press_shortcut()
        desktop.drag((420, 330), (3420, 1830))
        desktop.xdotool("mousemove", 100, 100)
        time.sleep(2)  # the flash is over
        begun, used = time.monotonic(), processor_time(program)
        time.sleep(STANDING)
        spent = (processor_time(program) - used) / (time.monotonic() - begun)
        row("a second of a selection of 3000 x 1500", f"{1000 * spent:.0f} ms of a core", f"memcpy {copy:.2f} ms",
            f"{1000 * spent / copy:.0f}", "<= 80 ms")
    finally:
        desktop.close()


def memory():
    """What is resident, and the share of it that no other process has a part in; with other programs on Qt, its libraries count less."""
    desktop = Desktop("openbox", monitors=MONITORS)
    try:
        desktop.witness((0, 0, 5760, 1080))
        program = desktop.start()

        def measure(name):
            time.sleep(2)  # everything has been painted, and what is free has gone back
            lines = Path(f"/proc/{program.process.pid}/smaps_rollup").read_text("utf-8").splitlines()
            sizes = {line.split(":")[0]: int(line.split()[-2]) / 1024 for line in lines if line.endswith("kB")}
            row(f"memory, {name}", f"{sizes['Rss']:.0f} MiB", f"share of it {sizes['Pss']:.0f} MiB", "", "<= 120 MiB")

        time.sleep(8)  # the search for updates, which loads libraries of its own, is over
        measure("idle")
        desktop.press_shortcut()
        measure("screens frozen")
        desktop.drag((400, 300), (3400, 1800))
        measure("selection of 3000 x 1500")
        desktop.key("p")
        desktop.drag((500, 500), (3000, 1500))
        measure("with a pencil stroke")
        desktop.key("Escape", "Escape", "Escape")
        desktop.wait_until_over()
        measure("idle again")
    finally:
        desktop.close()


def halo():
    rows = google("BenchHalo")
    copy, strokes = rows.pop("memcpy")["time"], rows.pop("Qt's strokes")["time"]
    for name, budget in (("a frame of the glow", "<= 4 ms"), ("the band of a new selection", "<= 6 ms"), ("a frame of a pulse", "")):
        ratio_row(f"{name}, 4K", rows[name]["time"], copy, "memcpy", budget)
    ratio_row("a frame of the glow, 4K", rows["a frame of the glow"]["time"], strokes, "Qt's strokes", "<= 0.066")
    ratio_row("a frame of its turning, 4K", rows["a frame of its turning"]["time"], rows["a frame of the glow"]["time"], "a whole frame",
              "<= 0.6")
    standing(copy)


def editor():
    """Single steps, in milliseconds of the processor's time, beside copying the screen's bytes."""
    done = subprocess.run([BUILD / "bench/BenchEditor"], stdout=subprocess.PIPE, check=True, text=True)
    rows = [line.split("\t") for line in done.stdout.splitlines()]
    copy = float(rows.pop(0)[1])
    budgets = {"move": "<= 4 ms, p95 <= 12 ms", "a spot": "<= 4 ms, p95 <= 12 ms", "let go": "<= 16 ms", "step of a mosaic": "<= 6 ms",
               "carry": "<= 4 ms, p95 <= 12 ms", "take up": "", "look": "<= 4 ms, p95 <= 12 ms"}
    for name, median, high in rows:
        budget = next(text for start, text in budgets.items() if name.startswith(start))
        row(f"{name}, 4K", f"{median} (p95 {high}) ms", f"memcpy {copy:.2f} ms", f"{float(median) / copy:.1f}", budget)


def marks():
    rows = google("BenchMarks")
    copy = rows.pop("memcpy")["time"]
    for name, measured in rows.items():
        budget = "<= 30 ms" if name.startswith("pixelate") else ""
        ratio_row(f"{name}, 4K", measured["time"], copy, "memcpy", budget)


def image_files():
    rows = google("BenchImageFiles")
    for screen in ("desktop", "editor", "photo", "wallpaper"):
        usual, both = rows[f"QImage/{screen}"], rows[f"both/{screen}"]
        ratio_row(f"PNG and TIFF of a 4K screen, {screen}", both["time"], usual["time"], "QImage's PNG", "<= 0.25")
        row("  its PNG's size", "", "of QImage's PNG", f"{both['size']:.2f}", "<= 1.10")


def recognition():
    if not (BUILD / "bench/shapes/BenchRecognize").exists():
        return
    for name, measured in google("shapes/BenchRecognize").items():
        row(f"recognising 2,000 points, {name}", f"{measured['time']:.3f} ms", "", "", "<= 1 ms")


if __name__ == "__main__":
    row("what", "median", "beside", "ratio", "budget")
    on_a_display()
    memory()
    on_sway()
    halo()
    editor()
    marks()
    image_files()
    recognition()
