#!/usr/bin/env python3
"""Writes the example designs of this folder.

Each design is drawn from its girdle outline: a facet at azimuth phi and angle theta is placed
through a point of the outline (or of the table's outline, or of a step), so that one recipe
cuts a round, an oval, a pear or a triangle. The files are written in the styles that
circulate: CRLF or LF, UTF-8 or Windows-1252, continuation lines, fractional indices, a
64-tooth gear.
"""
import math
import os

HERE = os.path.dirname(os.path.abspath(__file__))
GIRDLE = 0.015  # half the girdle's thickness, in girdle radii


def fmt(x):
    return f"{x:.6f}"


class Outline:
    """A convex girdle outline, known by its support function h(phi)."""

    def __init__(self, support, girdle):
        self.h = support  # phi in degrees -> distance of the supporting line
        self.girdle = girdle  # [(index, distance)] of the girdle facets


def smooth_outline(support, gear, count):
    step = gear / count
    return Outline(support, [(i * step, support(360.0 * i / count)) for i in range(count)])


def polygon_outline(planes, gear):
    """The outline cut by girdle planes [(index, distance)], with its support function."""
    lines = [(math.radians(360.0 * i / gear), d) for i, d in planes]
    vertices = []
    for a in range(len(lines)):
        for b in range(a + 1, len(lines)):
            (p, d1), (q, d2) = lines[a], lines[b]
            det = math.cos(p) * math.sin(q) - math.sin(p) * math.cos(q)
            if abs(det) < 1e-12:
                continue
            x = (d1 * math.sin(q) - d2 * math.sin(p)) / det
            y = (math.cos(p) * d2 - math.cos(q) * d1) / det
            if all(x * math.cos(r) + y * math.sin(r) <= d + 1e-9 for r, d in lines):
                vertices.append((x, y))

    def support(phi):
        r = math.radians(phi)
        return max(x * math.cos(r) + y * math.sin(r) for x, y in vertices)

    return Outline(support, planes)


def through(theta, radius, height):
    """The distance of a plane at angle theta through a point at radius and height."""
    t = math.radians(abs(theta))
    return radius * math.sin(t) + abs(height) * math.cos(t)


class Design:
    def __init__(self, gear, symmetry, mirror, index, titles, notes=()):
        self.gear, self.symmetry, self.mirror, self.index = gear, symmetry, mirror, index
        self.titles, self.notes = list(titles), list(notes)
        self.tiers = []  # (angle, distance, [(index, name)], instruction)

    def tier(self, angle, distance, indices, name="", instruction=""):
        named = [(i, f"{name}{k + 1}" if name else "") for k, i in enumerate(indices)]
        self.tiers.append((angle, distance, named, instruction))

    def text(self, wrap=0, newline="\r\n"):
        lines = ["GemCad 5.0", f"g {self.gear} 0.0", f"y {self.symmetry} {'y' if self.mirror else 'n'}",
                 f"I {self.index}"]
        lines += [f"H {t}" for t in self.titles]
        lines += [f"F {n}" for n in self.notes]
        for angle, distance, named, instruction in self.tiers:
            angle_text = "-0.000000" if angle == "culet" else fmt(angle)
            tokens = []
            for i, name in named:
                tokens.append(f"{i:g}" if abs(i - round(i)) < 1e-9 else f"{i:.4f}".rstrip("0"))
                if name:
                    tokens.append(f"n {name}")
            line = f"a {angle_text} {fmt(distance)}"
            if wrap:
                # The indices and names continue on lines of their own, as older programs wrote.
                lines.append(line)
                for k in range(0, len(tokens), wrap):
                    lines.append(" " + " ".join(tokens[k:k + wrap]))
                if instruction:
                    lines.append(f"G {instruction}")
            else:
                lines.append(" ".join([line] + tokens + ([f"G {instruction}"] if instruction else [])))
        return newline.join(lines) + newline


def symmetric(indices, gear):
    return sorted({round(i % gear, 6) for i in indices})


def brilliant(design, outline, mains, table=0.56, crown=34.5, pavilion=40.75, star=21.0):
    """A brilliant on any outline: mains, stars and halves placed through the outline."""
    gear = design.gear
    spacing = gear / mains
    main_at = [k * spacing for k in range(mains)]
    half_at = symmetric([m + s * spacing / 4 for m in main_at for s in (-1, 1)], gear)
    star_at = [m + spacing / 2 for m in main_at]
    widest = max(outline.h(360.0 * i / gear) for i in main_at)
    vertex = table / math.cos(math.pi / mains)  # the table's corner, as a share of the outline
    top = GIRDLE + (1 - vertex) * widest * math.tan(math.radians(crown))
    culet = GIRDLE + widest * math.tan(math.radians(pavilion))
    az = lambda i: 360.0 * i / gear
    design.tier(0.0, top, [0], "T", "table")
    for group in groups(star_at, outline, gear):
        design.tier(star, through(star, table * outline.h(az(group[0])), top), group, "S", "stars")
    for group in groups(main_at, outline, gear):
        h = outline.h(az(group[0]))
        angle = math.degrees(math.atan((top - GIRDLE) / ((1 - vertex) * h)))
        design.tier(angle, through(angle, h, GIRDLE), group, "C", "crown mains")
    for group in groups(half_at, outline, gear):
        h = outline.h(az(group[0]))
        angle = math.degrees(math.atan((top - GIRDLE) / ((1 - vertex) * h))) + 7.0
        design.tier(angle, through(angle, h, GIRDLE), group, "U", "upper halves")
    for group in groups([i for i, _ in outline.girdle], outline, gear):
        design.tier(90.0, outline.h(az(group[0])), group, "G", "girdle")
    for group in groups(main_at, outline, gear):
        h = outline.h(az(group[0]))
        angle = math.degrees(math.atan((culet - GIRDLE) / h))
        design.tier(-angle, through(angle, h, GIRDLE), group, "P", "pavilion mains")
    for group in groups(half_at, outline, gear):
        h = outline.h(az(group[0]))
        angle = math.degrees(math.atan((culet - GIRDLE) / h)) + 1.6
        design.tier(-angle, through(angle, h, GIRDLE), group, "L", "lower halves")


def groups(indices, outline, gear):
    """Indices whose facets lie at the same distance share a tier."""
    by_distance = {}
    for i in indices:
        key = round(outline.h(360.0 * i / gear), 9)
        by_distance.setdefault(key, []).append(i)
    return [sorted(g) for _, g in sorted(by_distance.items(), key=lambda kv: min(kv[1]))]


def step_cut(design, outline, corners, crown_steps, pavilion_steps):
    """A step cut: each step a band of constant width round the outline."""
    gear = design.gear
    az = lambda i: 360.0 * i / gear
    sides = [i for i, _ in outline.girdle]
    inset, height = 0.0, GIRDLE
    for n, (angle, width) in enumerate(crown_steps, 1):
        for group in groups(sides, outline, gear):
            h = outline.h(az(group[0]))
            design.tier(angle, through(angle, h - inset, height), group, f"C{n}-", f"crown step {n}")
        inset += width
        height += width * math.tan(math.radians(angle))
    design.tier(0.0, height, [0], "T", "table")
    for group in groups(sides, outline, gear):
        design.tier(90.0, outline.h(az(group[0])), group, "G", "girdle")
    inset, height = 0.0, GIRDLE
    for n, (angle, width) in enumerate(pavilion_steps, 1):
        for group in groups(sides, outline, gear):
            h = outline.h(az(group[0]))
            design.tier(-angle, through(angle, h - inset, height), group, f"P{n}-",
                        f"pavilion step {n}")
        inset += width
        height += width * math.tan(math.radians(angle))


def write(name, design, encoding="utf-8", newline="\r\n", wrap=0):
    with open(os.path.join(HERE, name), "wb") as f:
        f.write(design.text(wrap, newline).encode(encoding))


def main():
    # A round brilliant on the usual 96-tooth gear, CRLF.
    d = Design(96, 8, True, 2.417, ["KD-1 Round brilliant", "57 facets and a faceted girdle"],
               ["Table 56%, crown 34.5, pavilion 40.75 degrees."])
    brilliant(d, smooth_outline(lambda phi: 1.0, 96, 32), 8)
    write("round_brilliant.asc", d)

    # An oval, 1.39 : 1, in Windows-1252 with a title that needs it.
    oval = lambda phi: math.hypot(1.0 * math.cos(math.radians(phi)), 0.72 * math.sin(math.radians(phi)))
    d = Design(96, 2, True, 1.544, ["KD-2 Ovale à facettes – quartz", "Oval brilliant 1.39 : 1"],
               ["Cut the girdle first; the crown mains meet the table’s corners."])
    brilliant(d, smooth_outline(oval, 96, 32), 8, crown=38.0, pavilion=42.0)
    write("oval.asc", d, encoding="cp1252")

    # A pear: a round end and a point, mirror symmetry only; LF line ends.
    pear = lambda phi: max(0.38 * math.cos(math.radians(phi)) + 0.62, -1.0 * math.cos(math.radians(phi)))
    d = Design(96, 1, True, 1.76, ["KD-3 Pear brilliant", "Sapphire"], [])
    brilliant(d, smooth_outline(pear, 96, 32), 8, crown=36.0, pavilion=41.5)
    write("pear.asc", d, newline="\n")

    # An emerald cut: a rectangle with cut corners, three steps on the crown and pavilion.
    outline = polygon_outline([(0, 1.0), (24, 0.72), (48, 1.0), (72, 0.72),
                               (12, 1.15), (36, 1.15), (60, 1.15), (84, 1.15)], 96)
    d = Design(96, 2, True, 1.58, ["KD-4 Emerald cut", "Beryl, 1.39 : 1"],
               ["Steps of the crown: 50, 40, 30 degrees; of the pavilion: 58, 48, 40."])
    step_cut(d, outline, 4, [(50.0, 0.08), (40.0, 0.08), (30.0, 0.08)],
             [(58.0, 0.08), (48.0, 0.14), (40.0, 1.0)])
    write("emerald.asc", d, wrap=8)

    # A trillion: a triangle with truncated corners, three-fold with mirrors.
    outline = polygon_outline([(16, 0.5), (48, 0.5), (80, 0.5), (0, 0.86), (32, 0.86), (64, 0.86)], 96)
    d = Design(96, 3, True, 1.544, ["KD-5 Trillion", "Three-fold brilliant on a triangle"], [])
    brilliant(d, outline, 6, crown=32.0, pavilion=41.0)
    write("trillion.asc", d)

    # A round on a 64-tooth gear.
    d = Design(64, 8, True, 1.544, ["KD-6 Round on a 64 gear"], [])
    brilliant(d, smooth_outline(lambda phi: 1.0, 64, 32), 8, crown=40.0, pavilion=42.0)
    write("round_64.asc", d)

    # Ten-fold: 96 does not divide by ten, so every index past 0 is fractional; continuation
    # lines as older programs wrote them.
    d = Design(96, 10, True, 1.76, ["KD-7 Ten-fold round", "Fractional indices"],
               ["Indices between teeth: cut with a fine-division index or a cheater."])
    brilliant(d, smooth_outline(lambda phi: 1.0, 96, 40), 10)
    write("tenfold.asc", d, wrap=6)

    # Thirty-two mains and a girdle of 176 facets: about 400 facets, for work that grows
    # with the facet count.
    d = Design(96, 8, True, 2.417, ["KD-8 Thirty-two-main round", "401 facets"],
               ["The table has 64 corners; the girdle alone has 176 facets."])
    brilliant(d, smooth_outline(lambda phi: 1.0, 96, 176), 32)
    write("many_facets.asc", d)


if __name__ == "__main__":
    main()
