"""Strokes drawn by an unsteady hand and held still: the perfect shape is in the picture, its name in the log."""
import json
import math
import subprocess
import unittest
from pathlib import Path

from case import SystemTest
from desktop import A, PROGRAM, wait_for

SCALE = 2
CELL = (440, 330)  # device pixels that a shape has to itself
SELECTION = (80, 60, 4 * CELL[0], 3 * CELL[1])
RECOGNIZE = Path(PROGRAM).parent / "bench/shapes/recognize"


def ring(a, b, start=0.0, sweep=2 * math.pi):
    return [(a * math.cos(start + sweep * i / 60), b * math.sin(start + sweep * i / 60)) for i in range(61)]


def star(outer, inner):
    tips = [(outer if i % 2 == 0 else inner, math.pi / 2 + i * math.pi / 5) for i in range(11)]
    return [(radius * math.cos(angle), radius * math.sin(angle)) for radius, angle in tips]


def heart(size):
    turns = [2 * math.pi * i / 80 for i in range(81)]
    return [(size * 16 * math.sin(t) ** 3, size * (13 * math.cos(t) - 5 * math.cos(2 * t) - 2 * math.cos(3 * t) - math.cos(4 * t)))
            for t in turns]


# Vertices in device pixels round the middle of a cell, y upwards.
SHAPES = {
    "linea": [(-120, -70), (120, 70)],
    "flecha": [(-120, 0), (110, 0), (60, 45), (110, 0), (60, -45)],
    "visto": [(-110, 0), (-45, -80), (115, 100)],
    "arco": ring(120, 120, 0.3, 2.6),
    "circulo": ring(115, 115),
    "elipse": ring(150, 80),
    "estrella": star(125, 50),
    "triangulo": [(-120, -80), (120, -80), (-10, 110), (-120, -80)],
    "rectangulo": [(-140, -80), (140, -80), (140, 80), (-140, 80), (-140, -80)],
    "rombo": [(85, 0), (0, 130), (-85, 0), (0, -130), (85, 0)],
    "cuadrilatero": [(-150, -90), (110, -90), (134, 48), (-34, 110), (-150, -90)],
    "corazon": heart(7),
}


def stroke_of(name, middle):
    """The pixels of the root window that the hand passes, about six apart, trembling a little."""
    vertices = SHAPES[name]
    path = [vertices[0]]
    for (ax, ay), (bx, by) in zip(vertices, vertices[1:]):
        steps = max(1, round(math.hypot(bx - ax, by - ay) / 6))
        path += [(ax + (bx - ax) * k / steps, ay + (by - ay) * k / steps) for k in range(1, steps + 1)]
    return [(round(middle[0] + x + 2 * math.sin(0.3 * i)), round(middle[1] - y + 2 * math.cos(0.2 * i)))
            for i, (x, y) in enumerate(path)]


def ideal(stroke):
    """The outline that the recogniser finds in the stroke, in device pixels of the root window."""
    points = [value for x, y in [stroke[0], *stroke] for value in (x / SCALE, (A[3] - y) / SCALE)]
    answer = subprocess.run([RECOGNIZE], input=json.dumps({"id": 1, "points": points}) + "\n", text=True, check=True,
                            stdout=subprocess.PIPE).stdout
    shape = json.loads(answer)
    flat = shape["points"]
    return shape["name"], [(x * SCALE, A[3] - y * SCALE) for x, y in zip(flat[::2], flat[1::2])]


def distance(point, a, b):
    dx, dy = b[0] - a[0], b[1] - a[1]
    length = dx * dx + dy * dy
    t = 0 if length == 0 else max(0, min(1, ((point[0] - a[0]) * dx + (point[1] - a[1]) * dy) / length))
    return math.hypot(point[0] - a[0] - t * dx, point[1] - a[1] - t * dy)


class Shapes(SystemTest):
    window_manager = "openbox"

    def hold(self, stroke):
        """Draws it in one go and keeps the button down at its end."""
        self.desktop.xdotool("mousemove", *stroke[0], "mousedown", 1)
        moves = [word for x, y in stroke for word in ("mousemove", x, y, "sleep", 0.004)]
        self.desktop.xdotool(*moves)

    def figures(self):
        return [line.rsplit(" ", 1)[1] for line in self.desktop.log().splitlines() if " figura: " in line]

    def freeze(self):
        desktop = self.desktop
        desktop.run("xsetroot", "-solid", "#202020")
        desktop.start()
        self.select(SELECTION)
        desktop.key("p")

    def copied_ink(self):
        """Where the copied picture is red, in pixels of the root window."""
        desktop = self.desktop
        desktop.key("ctrl+c")
        wait_for(lambda: f"copiado {SELECTION[2]}x{SELECTION[3]} " in desktop.log(), "the copy")
        desktop.wait_until_over()
        rgb = desktop.pixels_of(desktop.clipboard("png"))
        red = [i for i in range(len(rgb) // 3) if rgb[3 * i] > 150 and rgb[3 * i + 1] < 120]
        return [(SELECTION[0] + i % SELECTION[2] + 0.5, SELECTION[1] + i // SELECTION[2] + 0.5) for i in red]

    def test_every_shape_held_still_is_perfect_in_the_copied_picture(self):
        self.freeze()
        outlines = []
        for i, name in enumerate(SHAPES):
            middle = (SELECTION[0] + CELL[0] * (i % 4) + CELL[0] // 2, SELECTION[1] + CELL[1] * (i // 4) + CELL[1] // 2)
            stroke = stroke_of(name, middle)
            self.hold(stroke)
            wait_for(lambda: len(self.figures()) == i + 1, f"the {name}")
            self.desktop.xdotool("mousemove_relative", "--", -30, -30)  # changes nothing any more
            self.desktop.xdotool("mouseup", 1)
            found, outline = ideal(stroke)
            self.assertEqual(found, name)
            outlines.append(outline)
        self.assertEqual(self.figures(), list(SHAPES))
        ink = self.copied_ink()
        blots = {(int(x), int(y)) for x, y in ink}
        segments = [(a, b) for outline in outlines for a, b in zip(outline, outline[1:])]
        for a, b in segments:  # all of every outline is there
            for share in (0.05, 0.35, 0.65, 0.95):
                at = (int(a[0] + (b[0] - a[0]) * share), int(a[1] + (b[1] - a[1]) * share))
                self.assertTrue(at in blots, f"nothing is drawn at {at}")
        reach = 1.5 * SCALE + 1.5  # half the line's width and a soft edge
        near = {}
        for a, b in segments:
            for cx in range(int(min(a[0], b[0]) - 8) // 16, int(max(a[0], b[0]) + 8) // 16 + 1):
                for cy in range(int(min(a[1], b[1]) - 8) // 16, int(max(a[1], b[1]) + 8) // 16 + 1):
                    near.setdefault((cx, cy), []).append((a, b))
        stray = [at for at in ink
                 if not any(distance(at, a, b) <= reach for a, b in near.get((int(at[0]) // 16, int(at[1]) // 16), []))]
        self.assertEqual(stray[:5], [])
        self.assertIn("pistaFiguras=99", next(self.desktop.home.rglob("*.conf")).read_text("utf-8"))

    def test_a_fast_hand_loses_no_point(self):
        desktop = self.desktop
        desktop.store(guardarTrazos="true")
        self.freeze()
        stroke = [(400 + (i * 37) % 190 + i, 300 + (i * 53) % 171) for i in range(300)]
        desktop.xdotool("mousemove", *stroke[0], "mousedown", 1, *(word for at in stroke[1:] for word in ("mousemove", *at)))
        kept = desktop.home / "Library/Logs/Vellumora-trazos.jsonl"
        wait_for(kept.exists, "the stroke that is no shape")
        wanted = [value for x, y in [stroke[0], *stroke] for value in (x / SCALE, (A[3] - y) / SCALE)]
        self.assertEqual(json.loads(kept.read_text("utf-8"))["puntos"], wanted)


if __name__ == "__main__":
    unittest.main()
