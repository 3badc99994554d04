#!/usr/bin/env python3
"""Writes the seeds of the fuzz targets below tests/data/fuzz: small inputs that reach real cases,
from which a fuzzer finds the rest sooner. How a target reads its bytes stands in its source and in
input.h.

    fuzz/seeds.py
"""

import math
import struct
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent / "tests" / "data" / "fuzz"

RAW, SMALL, ULPS = 0, 1, 2  # the kinds of coordinates in input.h
TINY = 5e-324
HUGE = 1e300
INF = math.inf
NAN = math.nan


def raw(values):
    return b"".join(struct.pack("<d", value) for value in values)


def small(values):
    return bytes(int(value) + 8 for value in values)


def ulps(values):
    """Coordinates 1 + n·2^-52, or 2 + n·2^-52 from the pair (n, 1)."""
    pairs = [value if isinstance(value, tuple) else (value, 0) for value in values]
    return bytes(byte for n, unit in pairs for byte in (n + 4, unit))


WRITE = {RAW: raw, SMALL: small, ULPS: ulps}


def flat(points):
    return [value for point in points for value in point]


def save(target, name, data):
    folder = ROOT / target
    folder.mkdir(parents=True, exist_ok=True)
    (folder / name).write_bytes(data)


def ring(count, inner=1.0, turns=1, radius=1.0):
    """Corners on a circle, every other one at `inner` times the radius; a star if turns > 1."""
    corners = []
    for i in range(count):
        angle = 2 * math.pi * turns * i / count
        r = radius * (inner if i % 2 else 1.0)
        corners.append((r * math.cos(angle), r * math.sin(angle)))
    return corners


def tilted(corners, scale=1.0, shift=(0.0, 0.0, 0.0)):
    """Puts them into the plane z = x / 3 - y / 2."""
    return [(scale * x + shift[0], scale * y + shift[1], scale * (x / 3 - y / 2) + shift[2])
            for x, y in corners]


# Corner lists on the lattice from -8 to 8.
LATTICE = {
    "square": [(-5, -5), (5, -5), (5, 5), (-5, 5)],
    "triangle": [(-7, -6), (8, -3), (1, 7)],
    "bow_tie": [(-5, -5), (5, 5), (5, -5), (-5, 5)],
    "comb": [(-8, -8), (8, -8), (8, 8), (6, 8), (6, -6), (4, -6), (4, 8), (2, 8), (2, -6), (0, -6),
             (0, 8), (-2, 8), (-2, -6), (-4, -6), (-4, 8), (-8, 8)],
    "pentagram": [(0, 8), (5, -7), (-8, 3), (8, 3), (-5, -7)],
    "corners_repeated": [(-5, -5), (-5, -5), (5, -5), (5, -5), (5, 5), (0, 0), (5, 5), (-5, 5)],
    "edges_repeated": [(-5, -5), (5, -5), (5, 5), (5, -5), (5, 5), (-5, 5), (-5, -5), (-5, 5)],
    "spike": [(-5, -5), (5, -5), (5, 0), (8, 0), (5, 0), (5, 5), (-5, 5)],
    "touching_itself": [(-8, 0), (0, 0), (4, 4), (8, 0), (4, -4), (0, 0), (-4, -8)],
    "hole_by_a_bridge": [(-8, -8), (8, -8), (8, 8), (-8, 8), (-8, -8), (-3, -3), (-3, 3), (3, 3),
                         (3, -3), (-3, -3)],
    "in_one_line": [(-6, -6), (0, 0), (3, 3), (8, 8), (-2, -2)],
    "one_point": [(2, 3), (2, 3), (2, 3), (2, 3)],
    "grid_of_crossings": [(-8, -6), (8, -6), (8, -2), (-8, -2), (-8, 2), (8, 2), (6, 8), (6, -8),
                          (2, -8), (2, 8), (-2, 8), (-2, -8)],
}


def predicates_and_edges():
    collinear = [(0, 0, 0), (1, 2, 3), (2, 4, 6), (3, 6, -1), (-1, -2, 5)]
    sphere = [(3, 4, 0), (4, 3, 0), (-3, 4, 0), (0, -5, 0), (0, 0, 5)]
    general = [(-7, 2, 5), (3, -8, 1), (6, 4, -2), (-1, 7, 8), (2, 2, 2)]
    for name, points in (("collinear", collinear), ("sphere", sphere), ("general", general)):
        save("predicates", f"small_{name}", bytes([SMALL]) + small(flat(points)))
        save("predicates", f"raw_{name}", bytes([RAW]) + raw(flat(points)))
        shifted = [[1e6 + v + 2.0**-30 * i for i, v in enumerate(p)] for p in points]
        save("predicates", f"far_{name}", bytes([RAW]) + raw(flat(shifted)))
        for scale in (1e-40, 1e60, 1e300, TINY):
            scaled = [[scale * v for v in p] for p in points]
            save("predicates", f"scaled_{scale:g}_{name}", bytes([RAW]) + raw(flat(scaled)))
    # Twelve and twenty-four on a diagonal, with the first point an ulp or few beside it.
    ulp = 2.0**-53
    for i, j in ((0, 0), (1, 0), (3, 5), (0, 7)):
        near = [(0.5 + i * ulp, 0.5 + j * ulp, 0.5), (12, 12, 12), (24, 24, 24), (0, 3, 7),
                (5, 1, 2)]
        save("predicates", f"diagonal_{i}_{j}", bytes([RAW]) + raw(flat(near)))
    # A sheet of lattice planes: tails of every length in the exact stages.
    skewed = [(1 + 2.0**-52, 1e-20, 3e15), (1e15 + 0.125, 2.0**-70, 1), (3, 1e16, 2.0**-60),
              (1 / 3, 2 / 3, 1e15 / 7), (0.1, 0.2, 0.3)]
    save("predicates", "mixed_magnitudes", bytes([RAW]) + raw(flat(skewed)))
    for n in range(3):
        pairs = [(k * (n + 1) % 9 - 4, (k + n) % 2) for k in range(15)]
        save("predicates", f"ulps_{n}", bytes([ULPS]) + ulps(pairs))
    save("predicates", "not_finite", bytes([RAW]) + raw([NAN, INF, -INF, 0.0, -0.0] * 3))

    edges = {
        "crossing": [(-4, -4), (4, 4), (-4, 4), (4, -4)],
        "first_on_second": [(0, 0), (3, 5), (-4, 0), (4, 0)],
        "second_on_first": [(-4, 0), (4, 0), (0, 0), (3, 5)],
        "sharing_a_start": [(1, 1), (5, 6), (1, 1), (-5, 2)],
        "sharing_an_end": [(1, 1), (5, 6), (-5, 2), (5, 6)],
        "start_at_end": [(1, 1), (5, 6), (5, 6), (-5, 2)],
        "overlapping": [(-4, -2), (4, 2), (-2, -1), (8, 4)],
        "one_in_the_other": [(-4, -2), (4, 2), (-2, -1), (2, 1)],
        "identical": [(-4, -2), (4, 2), (-4, -2), (4, 2)],
        "reversed": [(-4, -2), (4, 2), (4, 2), (-4, -2)],
        "in_line_apart": [(-4, -2), (-2, -1), (2, 1), (4, 2)],
        "parallel": [(-4, 0), (4, 0), (-4, 1), (4, 1)],
        "apart": [(-4, 0), (4, 0), (6, 3), (7, 8)],
        "one_point": [(2, 1), (2, 1), (-4, -2), (4, 2)],
        "two_points": [(2, 1), (2, 1), (2, 1), (2, 1)],
    }
    for name, points in edges.items():
        coords = flat((x, y, 1) for x, y in points)
        save("edges", f"small_{name}", bytes([SMALL, 0]) + small(coords))
        save("edges", f"raw_{name}", bytes([RAW, 0]) + raw(v / 3 for v in coords))
        save("edges", f"within_{name}", bytes([SMALL, 1]) + small([1]) + small(coords))
    for scale in (1e-300, 1e200, HUGE, TINY, INF, NAN):
        coords = flat((x * scale, y * scale, 1) for x, y in edges["crossing"])
        save("edges", f"scaled_{scale:g}", bytes([RAW, 0]) + raw(coords))
        save("edges", f"within_{scale:g}", bytes([RAW, 1]) + raw([scale]) + raw(coords))
    for n in range(3):
        pairs = [(k * (n + 2) % 9 - 4, k // 3 % 2) for k in range(12)]
        save("edges", f"ulps_{n}", bytes([ULPS, 0]) + ulps(pairs))


def rings():
    def any_ring(name, kind, points, query, closed=True):
        write = WRITE[kind]
        data = write(query) + bytes([0 if closed else 1]) + write(flat(points))
        save("ring", name, bytes([1, kind]) + data)

    for name, corners in LATTICE.items():
        for x, y in ((0, 0), (-5, -5), (7, 1)):
            save("ring", f"lattice_{name}_{x}_{y}", bytes([0]) + small([x, y, *flat(corners)]))
        any_ring(f"tilted_{name}", SMALL, [(x, y, x) for x, y in corners], (1, 1, 1))
    for count in (3, 12, 40, 160):
        convex = tilted(ring(count), 100, (5e5, 6e6, 300))
        any_ring(f"far_{count}", RAW, convex, (5e5 + 20, 6e6 - 30, 321))
        any_ring(f"open_{count}", RAW, convex, (5e5 + 20, 6e6 - 30, 321), closed=False)
        any_ring(f"jagged_{count}", RAW, tilted(ring(count, inner=0.3)), (0.1, 0.2, -0.06))
    for count, turns in ((5, 2), (11, 5), (31, 15)):
        any_ring(f"star_{count}", RAW, tilted(ring(count, turns=turns)), (0, 0, 0))
    upright = [(x, 0.0, y) for x, y in ring(12, inner=0.5)]
    any_ring("upright", RAW, upright, (0.1, 0, 0.1))
    twice = ring(12) + ring(12)
    any_ring("drawn_twice", RAW, tilted(twice), (0.1, 0.2, -0.06))
    for scale in (1e-300, 1e-7, 1e12, 1e150, HUGE, TINY):
        any_ring(f"scaled_{scale:g}", RAW, tilted(ring(8, inner=0.4), scale), (0, 0, 0))
    for bad in (NAN, INF, -INF):
        spoilt = tilted(ring(6))
        spoilt[2] = (bad, 0.0, 1.0)
        any_ring(f"corner_{bad}", RAW, spoilt, (0, 0, 0))
        any_ring(f"query_{bad}", RAW, tilted(ring(6)), (bad, 0, 0))
    close = [(k * 5 % 9 - 4, k // 4 % 2) for k in range(60)]
    any_ring("ulps", ULPS, [close[k:k + 3] for k in range(0, 60, 3)], (0, 0, 0))


def triangulations():
    def build(name, kind, points, breaklines=0, tolerance=False, breaks=()):
        """With breaklines = 3, a breakline leads to every point that is not among the `breaks`."""
        write = WRITE[kind]
        data = b"".join(write(p) + bytes([3 if i in breaks else 0]) for i, p in enumerate(points))
        save("triangulation", name, bytes([breaklines, 0 if tolerance else 1, kind]) + data)

    for name, corners in LATTICE.items():
        build(f"points_{name}", SMALL, corners)
        build(f"chain_{name}", SMALL, corners + corners[:1], breaklines=3, breaks=(0,))
    lattice = [(x, y) for x in range(-6, 7, 2) for y in range(-6, 7, 2)]
    build("lattice", SMALL, lattice)
    build("lattice_all_joined", SMALL, lattice, breaklines=3)
    build("lattice_thinned", SMALL, lattice, breaklines=1, tolerance=True)
    build("lattice_twice", SMALL, lattice + lattice)
    upright = [[(x, -8), (x, 8)] for x in range(-8, 9, 2)]
    combs = flat(upright + [[(-8, y), (8, y)] for y in range(-7, 8, 2)])
    build("combs_crossing", SMALL, combs, breaklines=3, breaks=range(0, len(combs), 2))
    through = [(-8, 0), (8, 0)] + [(x, 0) for x in range(-6, 7, 2)] + [(0, 8), (0, -8)]
    build("through_points", SMALL, through, breaklines=3, breaks=(0, *range(2, 10)))
    for count, turns in ((5, 2), (13, 6), (41, 20), (61, 30)):
        star = ring(count, turns=turns)
        star.append(star[0])
        build(f"star_{count}", RAW, star, breaklines=3, breaks=(0,))
        far = [(1e6 + 100 * x, 5e6 + 100 * y) for x, y in star]
        build(f"star_far_{count}", RAW, far, breaklines=3, breaks=(0,))
    fan = [(0.0, 0.0)] + ring(120)
    build("fan", RAW, fan)
    spokes = flat([[(0.0, 0.0), corner] for corner in ring(60)])
    build("spokes", RAW, spokes, breaklines=3, breaks=range(0, 120, 2))
    sliver = [(0.0, 0.0), (1.0, 1e-15), (2.0, -1e-15), (3.0, 0.0), (1.5, 1e-16)]
    build("slivers", RAW, sliver)
    build("slivers_joined", RAW, sliver, breaklines=3, breaks=(0,))
    build("thinned", RAW, ring(100, radius=3.0), tolerance=True)
    for scale in (1e-300, 1e-9, 1e100, HUGE, TINY, INF, NAN):
        build(f"scaled_{scale:g}", RAW, [(x * scale, y * scale) for x, y in ring(12, inner=0.5)],
              breaklines=3, breaks=(0,))
    build("one_infinite", RAW, ring(7) + [(INF, 1.0)], breaklines=3, breaks=(0,))
    cocircular = [(5, 0), (4, 3), (3, 4), (0, 5), (-3, 4), (-4, 3), (-5, 0), (-4, -3), (-3, -4),
                  (0, -5), (3, -4), (4, -3)]
    build("on_one_circle", SMALL, cocircular)
    close = [((k * 5 % 9 - 4, k // 4 % 2), (k * 7 % 9 - 4, k // 8 % 2)) for k in range(40)]
    build("ulps", ULPS, close)
    build("ulps_joined", ULPS, close, breaklines=3, breaks=(0,))


def circles():
    for name, corners in LATTICE.items():
        save("circle", f"small_{name}", bytes([0, SMALL]) + small(flat(corners[:14])))
        save("circle", f"raw_{name}", bytes([1, RAW]) + raw(v / 3 for v in flat(corners)))
    for count in (2, 7, 100):
        save("circle", f"on_a_circle_{count}", bytes([1, RAW]) + raw(flat(ring(count, radius=1e5))))
    for scale in (1e-300, 1e160, HUGE, TINY, INF, NAN):
        save("circle", f"scaled_{scale:g}", bytes([1, RAW]) + raw(v * scale for v in flat(ring(9))))
    save("circle", "ulps", bytes([1, ULPS]) + ulps(k * 5 % 9 - 4 for k in range(80)))


def polylines():
    ADD, REVERSE, CLOSE = 0, 2, 3
    names = [b"", b"42", b"-17", b"+5", b" 12 ", b"12abc", b"0x1F", b"2147483647", b"2147483648",
             b"-2147483648", b"-2147483649", b"99999999999999999999", b"--1", b"\0", b"1\0002",
             b"\xff\xfe", b"n" * 300]
    square = [(0, 0, 0), (5, 0, 0), (5, 5, 0), (0, 5, 0)]
    for i, name in enumerate(names):
        kind = (SMALL, RAW)[i % 2]
        write = WRITE[kind]
        steps = [bytes([ADD]) + write(p) for p in square[:i % 5]]
        tail = write((2, 2, 0)) + write([1]) + write([1]) + struct.pack("<i", -i) + name
        save("polyline", f"name_{i}", bytes([kind, len(steps)]) + b"".join(steps) + tail)
    for bad in (0.0, 1e-300, HUGE, TINY, INF, NAN):
        steps = [bytes([ADD]) + raw(p) for p in [*square, (bad, 1, -bad), (bad, 1, -bad)]]
        steps += [bytes([CLOSE, 0]), bytes([REVERSE])]
        tail = raw((bad, 2, 0)) + raw([bad]) + raw([bad]) + struct.pack("<i", 7) + b"7"
        save("polyline", f"points_{bad:g}", bytes([RAW, len(steps)]) + b"".join(steps) + tail)
    for corners in ("comb", "bow_tie", "corners_repeated", "in_one_line", "pentagram"):
        steps = [bytes([ADD]) + small((x, y, 0)) for x, y in LATTICE[corners]]
        steps += [bytes([CLOSE, 0]), bytes([REVERSE])]
        for count in (len(LATTICE[corners]) + 1, len(steps)):
            tail = small((1, 1, 0)) + small([0]) + small([2]) + struct.pack("<i", 2**31 - 1) + b"1"
            save("polyline", f"{corners}_{count}",
                 bytes([SMALL, count]) + b"".join(steps[:count]) + tail)


def voxelations():
    def index(name, kind, box, counts, boxes, points, near):
        write = WRITE[kind]
        steps = [write(a) + bytes([i % 7, 1]) + write(b) for i, (a, b) in enumerate(boxes)]
        steps += [write(p) + bytes([200 + i % 3, 0]) for i, p in enumerate(points)]
        # A count is read as (bits modulo 14) - 1.
        grid = write(flat(box)) + b"".join(struct.pack("<I", count + 1) for count in counts)
        save("voxelation", name,
             bytes([kind]) + grid + bytes([len(steps)]) + b"".join(steps) + write(flat(near)))

    box = ((-8, -8, -8), (8, 8, 8))
    boxes = [((-8, -8, -8), (8, 8, 8)), ((0, 0, 0), (3, 3, 3)), ((-2, -7, 1), (5, -7, 1)),
             ((4, 4, 4), (-4, -4, -4)), ((0, 0, 0), (3, 3, 3))]
    points = [(0, 0, 0), (8, 8, 8), (-8, 3, 5), (0, 0, 0), (7, -7, 7)]
    near = ((1, 1, 1), (2, 3, 2))
    for counts in ((1, 1, 1), (12, 12, 12), (3, 5, 7), (12, 1, 2), (0, 3, 3), (-1, 1, 1)):
        index("grid_{}_{}_{}".format(*counts), SMALL, box, counts, boxes, points, near)
    index("flat", SMALL, ((-8, -8, 0), (8, 8, 0)), (4, 4, 4), boxes, points, near)
    index("inverted", SMALL, box[::-1], (4, 4, 4), boxes, points, near)
    index("without_size", SMALL, ((1, 1, 1), (1, 1, 1)), (4, 4, 4), boxes, points, near)
    index("one_voxel_often", SMALL, box, (2, 2, 2), [((1, 1, 1), (2, 2, 2))] * 20, points * 2, near)
    for scale in (1e-320, 1e-160, 1.0, 1e160, HUGE, INF, NAN):
        def times(some):
            return [tuple(v * scale for v in p) for p in some]

        far_boxes = [times(pair) for pair in boxes]
        counts = (3, 5, 7)
        index(f"scaled_{scale:g}", RAW, times(box), counts, far_boxes, times(points), times(near))
        index(f"asked_at_{scale:g}", RAW, box, counts, far_boxes, points, times(near))
    index("ulps", ULPS, (((-4, 0),) * 3, ((4, 1),) * 3), (3, 4, 5), [], [(0, 1, (2, 1))] * 5,
          ((0,) * 3, (1,) * 3))


def primitives():
    # Two triangles and a point; the boxes and segments are those between the first four points.
    shapes = {
        "general": "-7 2 5  3 -8 1  6 4 -2  -1 7 8  2 2 2  0 -3 4  5 5 -5",
        "boxes_apart": "-8 -8 -8  -4 -4 -4  2 2 2  6 6 6  0 0 0  1 1 0  8 0 0",
        "boxes_touching": "-4 -4 -4  0 0 0  0 0 0  4 4 4  0 0 0  2 2 2  0 4 0",
        "box_in_box": "-8 -8 -8  8 8 8  -2 -2 -2  2 2 2  1 1 1  7 7 7  0 0 0",
        "triangles_crossing": "-4 -4 0  4 -4 0  0 6 0  0 0 -4  0 0 4  0 8 0  1 0 4",
        "triangles_in_one_plane": "-4 -4 0  4 -4 0  0 6 0  -2 -2 0  6 -2 0  2 8 0  0 0 0",
        "triangles_sharing_an_edge": "0 0 0  4 0 0  0 4 0  0 0 0  4 0 0  0 -4 3  2 0 0",
        "triangles_sharing_a_corner": "0 0 0  4 0 0  0 4 0  0 0 0  -4 0 2  0 -4 3  2 0 0",
        "triangle_in_a_line": "0 0 0  2 2 2  5 5 5  0 4 0  4 0 0  1 1 1  8 8 8",
        "segments_parallel": "0 0 0  4 2 0  0 0 3  4 2 3  2 1 7  8 8 8  -8 0 8",
        "segments_in_line": "0 0 0  4 2 0  6 3 0  8 4 0  2 1 0  5 1 0  5 1 3",
        "one_point": "2 3 4 " * 7,
    }
    shapes = {name: [int(word) for word in text.split()] for name, text in shapes.items()}
    for name, coords in shapes.items():
        save("primitives", f"small_{name}", bytes([0, SMALL]) + small(coords))
        save("primitives", f"raw_{name}", bytes([1, RAW]) + raw(v / 3 for v in coords))
    for scale in (1e-300, 1e-160, 1e160, HUGE, TINY, INF, NAN):
        scaled = [v * scale for v in shapes["general"]]
        save("primitives", f"scaled_{scale:g}", bytes([1, RAW]) + raw(scaled))
        crossing = enumerate(shapes["triangles_crossing"])
        mixed = [v * (1 if i % 4 else scale) for i, v in crossing]
        save("primitives", f"mixed_{scale:g}", bytes([1, RAW]) + raw(mixed))
    for n in range(3):
        pairs = [(k * (n + 2) % 9 - 4, k // 3 % 2) for k in range(21)]
        save("primitives", f"ulps_{n}", bytes([1, ULPS]) + ulps(pairs))


if __name__ == "__main__":
    predicates_and_edges()
    rings()
    triangulations()
    circles()
    polylines()
    voxelations()
    primitives()
