"""Scenes with one thing large in the middle: a clock, a board, a kettle, a candle."""
import math

from .elements import DEEP, cloud, gear, halo, hills, leaf
from .lettering import text
from .svg import circle, ellipse, flat_line, joined, line, mix, path, pen, placed, polygon, rect, regular, ring


def bubbles(p, r):
    shapes = []
    for x, y, size in ((168, 150, 84), (70, 70, 40), (276, 62, 34), (56, 236, 30), (286, 232, 46), (120, 268, 17),
                       (222, 284, 13), (232, 22, 12), (22, 150, 12)):
        shapes += [circle(x, y, size, mix(p.sky, p.glow, 0.8)), ring(x, y, size, p.light, 3),
                   pen(f"M{x - size * 0.62} {y - size * 0.2}A{size * 0.66} {size * 0.66} 0 0 1 {x - size * 0.2} "
                       f"{y - size * 0.62}", p.light, max(2, size * 0.08))]
    inside = [path("M-60 22Q0 4 60 22L50 50Q0 66 -50 50Z", p.far),
              *placed([polygon([(-15, 0), (15, 0), (15, 26), (-15, 26)], p.accent),
                       polygon([(-21, 0), (0, -19), (21, 0)], p.mid)], 0, 0), circle(32, -34, 12, p.accent),
              rect(-40, -4, 5, 24, p.mid), circle(-38, -12, 14, p.mid)]
    wand = [line([(84, 330), (118, 286)], p.near, 6), ring(126, 274, 14, p.near, 5)]
    return [*shapes, *placed(inside, 168, 150), *wand, hills(r, 300, 20, p.mid), hills(r, 318, 10, p.near)]


def kitchen(p, r):
    pot = [rect(-70, -40, 140, 84, p.accent, 16), rect(-82, -48, 164, 16, p.near, 8),
           rect(-96, -18, 28, 12, p.near, 6), rect(68, -18, 28, 12, p.near, 6),
           path("M-66 -48Q-60 -78 -24 -70Q0 -94 26 -70Q60 -78 66 -48Z", p.light),
           rect(-54, -22, 9, 44, mix(p.accent, p.light, 0.4), 4)]
    spoons = [item for x, turn in ((44, -16), (112, 8), (224, -8), (292, 14))
              for item in placed([line([(0, 0), (0, 70)], p.mid, 7), ellipse(0, 80, 13, 19, p.mid)], x, 26, turn)]
    stove = [rect(24, 254, 288, 90, p.near, 8), *[circle(66 + i * 51, 284, 10, p.light) for i in range(5)],
             *[path(f"M{120 + i * 32} 254q-10 -18 4 -28q12 12 4 28z", p.accent if i % 2 else p.light)
               for i in range(4)]]
    tiles = [rect(-4 + i * 44, -130 + k * 44, 41, 41, mix(p.sky, p.glow, 0.7 if (i + k) % 2 else 0.2))
             for i in range(8) for k in range(8)]
    return [*tiles, rect(-10, 18, 356, 9, p.near), *spoons, *stove, *placed(pot, 168, 186),
            rect(-10, 310, 356, 170, p.near)]


def sea_glass(p, r):
    shapes = []
    for k in range(8):
        for i in range(-1, 8):
            x, y = i * 50 + (25 if k % 2 else 0), 8 + k * 43
            if math.hypot(x - 200, y - 94) < 58:
                colour = r.choice([p.accent, mix(p.accent, p.light, 0.3), mix(p.accent, p.light, 0.55)])
            elif y < 170:
                colour = mix(p.glow, p.far, r.uniform(0, 0.4))
            else:
                colour = mix(p.far, p.near, r.uniform(0, 0.3) + (y - 170) / 300)
            corners = joined((x + px * r.uniform(0.9, 1), y + py * r.uniform(0.9, 1))
                             for px, py in regular(0, 0, 22, 6))
            shapes += [path(corners + "Z", colour), pen(corners + "Z", colour, 8)]
    return [rect(-10, -140, 356, 640, p.light), *shapes]


def knot(p, r):
    """A trefoil: short pieces of rope, the lower ones first."""
    def place(turn):
        across, down = math.sin(turn) + 2 * math.sin(2 * turn), math.cos(turn) - 2 * math.cos(2 * turn)
        return 168 + 42 * across, 182 + 42 * down
    pieces = 150
    turns = sorted((2 * math.pi * i / pieces for i in range(pieces)), key=lambda turn: -math.sin(3 * turn))
    step, rope = 2 * math.pi / pieces, []
    for turn in turns:
        points = [place(turn + step * share) for share in (-0.7, 0, 0.7)]
        rope.append(flat_line(points, p.near, 40))
        rope.append(flat_line([place(turn + step * share) for share in (-1.6, 0, 1.6)], p.accent, 29))
        if round(turn / step) % 5 == 0:
            (x, y), (ahead, below) = place(turn), place(turn + step)
            length = math.hypot(ahead - x, below - y)
            across = ((y - below) / length * 9, (ahead - x) / length * 9)
            along = ((ahead - x) / length * 5, (below - y) / length * 5)
            rope.append(line([(x - across[0] - along[0], y - across[1] - along[1]),
                              (x + across[0] + along[0], y + across[1] + along[1])], mix(p.accent, p.near, 0.45), 3))
    return [*halo(p, 168, 158, 30, 3, 44)[:-1], *rope]


def marmalade_clock(p, r):
    face = [circle(0, 0, 112, p.near), circle(0, 0, 102, p.accent), circle(0, 0, 88, p.light)]
    segments = [polygon([(8 * math.cos(a), 8 * math.sin(a)), (78 * math.cos(a - 0.2), 78 * math.sin(a - 0.2)),
                         (84 * math.cos(a), 84 * math.sin(a)), (78 * math.cos(a + 0.2), 78 * math.sin(a + 0.2))],
                        mix(p.accent, p.light, 0.35)) for a in [i * math.pi / 6 for i in range(12)]]
    hands = [line([(0, 0), (-34, -40)], p.near, 8), line([(0, 0), (46, -54)], p.near, 5), circle(0, 0, 9, p.near)]
    return [*gear(54, 60, 56, 12, p.far, p.sky, 8), *gear(292, 256, 62, 12, p.far, p.sky, 20),
            *gear(296, 66, 34, 9, mix(p.far, p.mid, 0.5), p.sky), *placed([*face, *segments, *hands], 168, 158),
            hills(r, 300, 20, p.mid), hills(r, 316, 10, p.near)]


def candle(p, r):
    wing = path("M0 0C-18 -46 -66 -62 -82 -42C-88 -16 -60 6 -10 10C-50 16 -56 44 -38 56C-20 58 -4 36 0 14Z", p.light)
    moth = [wing, *placed([wing], flip=True), ellipse(0, 14, 7, 26, p.near), circle(-46, -22, 8, p.accent),
            circle(46, -22, 8, p.accent), pen("M-3 -10Q-14 -36 -26 -40", p.near, 2.4),
            pen("M3 -10Q14 -36 26 -40", p.near, 2.4)]
    stick = [rect(144, 246, 48, 110, p.light, 4), path("M144 252q8 30 14 8q8 40 16 -2q8 24 18 -6v-10h-48z",
                                                       mix(p.light, p.far, 0.25)),
             line([(168, 246), (168, 230)], p.near, 4)]
    return [circle(168, 206, 190, mix(p.sky, p.glow, 0.18)), circle(168, 206, 130, mix(p.sky, p.glow, 0.4)),
            circle(168, 206, 76, mix(p.sky, p.accent, 0.5)), *placed(moth, 168, 98, -12, 1.15),
            path("M168 160C196 196 194 232 168 236C142 232 140 196 168 160Z", p.accent),
            path("M168 192C182 210 180 230 168 232C156 230 154 210 168 192Z", p.light), *stick,
            hills(r, 316, 8, p.near)]


def weather(p, r):
    face = [circle(-20, 0, 4.5, p.near), circle(20, 0, 4.5, p.near), pen("M-9 9Q0 18 9 9", p.near, 3.4),
            circle(-36, 11, 7, p.accent), circle(36, 11, 7, p.accent)]
    drops = [path(f"M{x} {y}q-10 16 0 24q10 -8 0 -24z", p.mid)
             for x, y in ((102, 196), (146, 214), (190, 196), (234, 214), (124, 244), (212, 246), (168, 254))]
    child = [path("M-18 0Q-18 -44 0 -48Q18 -44 18 0Z", p.accent), circle(0, -56, 14, p.near),
             path("M-19 -58Q0 -86 19 -58Z", p.accent), rect(-14, 0, 10, 12, p.near, 3), rect(4, 0, 10, 12, p.near, 3)]
    return [*halo(p, 262, 66, 34, 2, 30), *cloud(164, 120, 2.3, p.light), *placed(face, 166, 128, scale=1.2), *drops,
            hills(r, 302, 14, mix(p.far, p.mid, 0.3)), ellipse(168, 316, 84, 9, p.glow),
            *placed(child, 168, 312, scale=0.8), rect(-10, 324, 356, 150, p.near)]


def kettle(p, r):
    body = [path("M-70 40Q-84 -40 -30 -58H30Q84 -40 70 40Z", p.accent), rect(-78, 36, 156, 16, p.near, 6),
            path("M66 -8Q100 -18 116 -54L130 -48Q122 4 72 26Z", p.accent),
            pen("M-40 -56Q-40 -108 0 -108T40 -56", p.near, 9), rect(-26, -70, 52, 14, p.near, 6),
            circle(0, -76, 8, p.light), circle(0, -8, 26, p.light), pen("M0 -8L14 -20", p.near, 4),
            circle(0, -8, 4, p.near)]
    wheels = [item for x in (-48, 48) for item in (circle(x, 60, 27, p.near), circle(x, 60, 15, p.light),
                                                   circle(x, 60, 5, p.near))]
    puffs = [circle(x, y, size, p.light)
             for x, y, size in ((296, 96, 12), (310, 66, 18), (290, 38, 24), (252, 20, 18))]
    roofs = [polygon([(x, 330), (x, 300 - h), (x + w / 2, 270 - h), (x + w, 300 - h), (x + w, 330)], p.mid)
             for x, w, h in ((-14, 74, 0), (64, 70, 14), (196, 76, 8), (276, 80, 20))]
    speed = [line([(x, y), (x + 46, y)], mix(p.sky, p.far, 0.8), 5)
             for x, y in ((-4, 130), (10, 160), (-8, 190), (20, 216))]
    return [*halo(p, 84, 74, 34, 2, 32), *puffs, *speed, *roofs, *placed([*body, *wheels], 172, 184, -7, 1.06),
            path(f"M-10 {DEEP}V290L346 250V{DEEP}Z", p.near)]


def seesaw(p, r):
    def king(colour):
        return [path("M-30 0Q-34 -66 0 -72Q34 -66 30 0Z", colour), circle(0, -84, 19, p.light),
                polygon([(-22, -96), (-24, -126), (-10, -112), (0, -132), (10, -112), (24, -126), (22, -96)],
                        p.accent), circle(-7, -84, 2.6, p.near), circle(7, -84, 2.6, p.near),
                pen("M-8 -74Q0 -70 8 -74", p.near, 2.4), rect(-30, -8, 60, 8, p.light)]
    plank = [rect(-160, -7, 320, 14, p.near, 6), *placed(king(p.mid), -112, -6), *placed(king(p.accent), 112, -6)]
    rays = [polygon([(168, 170), (168 + 420 * math.cos(a), 170 + 420 * math.sin(a)),
                     (168 + 420 * math.cos(a + 0.13), 170 + 420 * math.sin(a + 0.13))], mix(p.sky, p.glow, 0.9))
            for a in [i * math.pi / 12 for i in range(24)]]
    return [*rays, hills(r, 268, 18, p.far), polygon([(168, 214), (122, 320), (214, 320)], p.mid),
            *placed(plank, 168, 216, -11), rect(-10, 316, 356, 160, p.near)]


def lion(p, r):
    fringe = [circle(112 * math.cos(a), 96 * math.sin(a), 22, p.light if i % 2 else mix(p.light, p.accent, 0.5))
              for i, a in enumerate([k * math.pi / 10 for k in range(20)])]
    face = [*fringe, ellipse(0, 0, 108, 94, p.accent), path("M-70 -64Q0 -120 70 -64Q36 -84 0 -84T-70 -64Z", p.light),
            *[item for side in (-1, 1) for item in (ellipse(side * 44, -22, 30, 27, p.light),
                                                    ellipse(side * 44, -22, 20, 19, p.near),
                                                    circle(side * 50, -29, 6, p.light),
                                                    pen(f"M{side * 16} -58Q{side * 46} -76 {side * 82} -48", p.near,
                                                        9), circle(side * 74, 24, 14, mix(p.accent, p.light, 0.5)))],
            circle(0, -62, 15, p.mid), circle(0, -62, 8, p.light),
            path("M-22 8Q0 -12 22 8Q14 24 0 24T-22 8Z", p.near),
            path("M-62 42Q0 64 62 42Q52 88 0 90Q-52 88 -62 42Z", p.near),
            *[rect(-38 + i * 20, 49 + (2 if i in (1, 2) else 0), 16, 14, p.light, 3) for i in range(4)],
            path("M-26 80Q0 66 26 80Q0 94 -26 80Z", p.glow)]
    rays = [polygon([(168, 160), (168 + 420 * math.cos(a), 160 + 420 * math.sin(a)),
                     (168 + 420 * math.cos(a + 0.16), 160 + 420 * math.sin(a + 0.16))], mix(p.sky, p.glow, 0.5))
            for a in [i * math.pi / 9 for i in range(18)]]
    poles = [item for x in (58, 168, 278) for item in (rect(x - 8, 280, 16, 80, p.near),
                                                       ellipse(x, 280, 26, 8, p.mid))]
    return [*rays, *poles, *placed(face, 168, 160, -4, 1.04), rect(-10, 318, 356, 160, p.near)]


def beetles(p, r):
    def beetle(colour):
        return [*[pen(f"M0 {y}Q{side * 30} {y - 14} {side * 40} {y + 8}", p.near, 4) for y in (-14, 6, 26)
                  for side in (-1, 1)], circle(0, -34, 15, p.near), ellipse(0, 6, 27, 36, colour),
                line([(0, -26), (0, 42)], p.near, 3), path("M-18 -18Q-8 -30 0 -28", p.light),
                pen("M-6 -46Q-12 -62 -22 -64", p.near, 3), pen("M6 -46Q12 -62 22 -64", p.near, 3),
                circle(-11, -2, 4.5, p.light), circle(12, 16, 4.5, p.light)]
    staff = [pen(f"M-10 {76 + i * 36}Q168 {40 + i * 36} 346 {92 + i * 36}", mix(p.sky, p.glow, 0.9), 3)
             for i in range(6)]
    band = [item for i, (x, y, turn) in enumerate(((50, 92, 20), (118, 152, -12), (186, 96, 14), (252, 190, 30),
                                                   (88, 248, -24), (288, 98, -6)))
            for item in placed(beetle((p.accent, p.light, mix(p.accent, p.near, 0.35))[i % 3]), x, y, turn, 0.86)]
    baton = [line([(150, 312), (216, 246)], p.light, 5), circle(150, 312, 8, p.accent)]
    return [*halo(p, 168, 150, 20, 3, 60)[:-1], *staff, *band, *baton, hills(r, 310, 14, p.near)]


def snail(p, r):
    shell = [circle(0, 0, 72, p.accent),
             pen("M0 0m-50 8A50 50 0 1 1 34 40A38 38 0 1 1 26 -24A24 24 0 1 0 -16 16A12 12 0 0 0 6 6", p.light, 8)]
    body = [path("M-110 84Q-60 60 20 66Q84 66 96 14Q100 -8 118 -10Q140 -8 136 26Q126 90 60 92H-100Q-120 92 -110 84Z",
                 p.mid), line([(116, -8), (108, -44)], p.mid, 5), line([(128, -6), (138, -40)], p.mid, 5),
            circle(108, -46, 6, p.near), circle(138, -42, 6, p.near), pen("M112 22Q120 30 130 22", p.near, 3)]
    arm = [line([(0, 0), (64, -150)], p.near, 6), polygon([(38, -62), (60, -70), (52, -108), (34, -92)], p.near)]
    staff = [line([(-10, 60 + i * 18), (346, 60 + i * 18)], mix(p.sky, p.far, 0.55), 2) for i in range(5)]
    notes = [item for x, y in ((46, 96), (268, 70), (306, 112))
             for item in (ellipse(x, y, 11, 8, p.near), line([(x + 10, y), (x + 10, y - 42)], p.near, 3))]
    return [*staff, *notes, *placed([*arm, *body, *shell], 150, 206), hills(r, 288, 12, p.far),
            hills(r, 302, 16, p.near)]


def wind_chime(p, r):
    bell = [line([(0, -170), (0, -66)], p.near, 2.4),
            path("M-64 20Q-72 -68 0 -70Q72 -68 64 20Q0 44 -64 20Z", p.light),
            path("M-64 20Q0 44 64 20Q58 34 0 38T-64 20Z", p.mid), circle(0, -72, 9, p.near),
            *placed([path("M0 -24C14 -12 14 12 0 22C-14 12 -14 -12 0 -24Z", p.accent),
                     path("M0 22L12 38H-12Z", p.accent)], -20, -14, 60, 0.9), pen("M10 8Q26 -16 48 -22", p.far, 4),
            line([(0, 30), (0, 92)], p.near, 2.4), circle(0, 46, 8, p.near)]
    strip = placed([rect(-22, 0, 44, 96, p.accent, 2), *[rect(-4, 18 + i * 16, 8, 8, p.light, 4) for i in range(4)]],
                   0, 92, -8)
    wind = [pen(f"M{x} {y}q60 -20 110 0t90 -8", mix(p.sky, p.light, 0.85), 4)
            for x, y in ((-30, 76), (200, 120), (-40, 236), (190, 262))]
    return [*halo(p, 250, 78, 34, 2, 34), *wind, *placed([*bell, *strip], 168, 128, 0, 1.06),
            hills(r, 296, 20, p.far), hills(r, 314, 12, p.near)]


def hexes(p, r):
    shapes = []
    for k in range(6):
        for i in range(6):
            x, y = i * 66 + (33 if k % 2 else 0), k * 57
            fill = r.choice([p.far, p.mid, mix(p.far, p.glow, 0.5), mix(p.mid, p.near, 0.35)])
            shapes.append(polygon(regular(x, y, 34, 6), fill))
            if r.random() < 0.62 or (i, k) == (2, 2):
                crown = p.accent if (i, k) == (2, 2) else r.choice([p.near, p.near, mix(p.near, p.mid, 0.4)])
                shapes += [rect(x - 2.5, y, 5, 16, p.near), circle(x, y - 6, 15, crown),
                           circle(x - 5, y - 10, 4, p.light if crown == p.accent else mix(crown, p.light, 0.4))]
    return [rect(-10, -140, 356, 640, p.glow), *shapes, rect(-10, 330, 356, 160, p.near)]


def type_letters(p, r):
    blocks = []
    for i, letter in enumerate("Aß字あR&ñ한Z"):
        colour = {4: p.accent, 2: p.light}.get(i, mix(p.mid, p.near, 0.2 + 0.15 * (i % 3)))
        ink = p.accent if colour == p.light else p.light
        sign = text(0, 24, letter, 66, ink, spacing=0, weight=0.04)
        blocks += placed([rect(-47, -43, 96, 96, p.near, 6), rect(-47, -47, 94, 94, colour, 6), sign],
                         62 + (i % 3) * 106, 54 + (i // 3) * 106, r.uniform(-3, 3))
    return [rect(-10, -140, 356, 640, p.far), *blocks, rect(-10, 330, 356, 160, p.near)]


def drawers(p, r):
    shapes = [rect(18, -8, 300, 330, p.near, 10)]
    for k in range(4):
        for i in range(4):
            x, y = 30 + i * 70, 6 + k * 76
            opened = (i, k) == (2, 1)
            if opened:
                shapes += [rect(x, y, 64, 70, p.near), rect(x, y + 12, 64, 66, mix(p.near, p.mid, 0.4)),
                           rect(x - 5, y + 24, 74, 64, p.accent, 4),
                           *placed([ring(0, 0, 9, p.light, 4.5), line([(9, 0), (30, 0)], p.light, 4.5),
                                    line([(24, 0), (24, 8)], p.light, 4.5), line([(30, 0), (30, 10)], p.light, 4.5)],
                                   x + 22, y + 10, -24)]
            else:
                shapes += [rect(x, y, 64, 70, mix(p.far, p.mid, r.choice([0.1, 0.3, 0.5])), 4)]
            shapes += [circle(x + 32, y + (58 if opened else 38), 6, p.near),
                       rect(x + 20, y + (34 if opened else 12), 24, 10, p.light, 2)]
    return [*shapes, rect(-10, 322, 356, 160, p.near)]


def paper_chess(p, r):
    board = [polygon([(168 + (i - 4) * 22 + (k - 4) * 22 + dx, 238 + (k - i) * 11 + dy)
                      for dx, dy in ((0, 0), (22, -11), (44, 0), (22, 11))], p.near if (i + k) % 2 else p.light)
             for i in range(8) for k in range(8)]
    board = [*placed(board, -22, 0)]
    knight = [polygon([(-34, 60), (-26, 4), (-52, -14), (-46, -40), (-8, -78), (-2, -96), (10, -76), (40, -40),
                       (38, 60)], p.accent), polygon([(-8, -78), (10, -76), (40, -40), (38, 60), (6, 60), (14, -20)],
                                                     mix(p.accent, p.near, 0.3)),
              polygon([(-26, 4), (-46, -40), (-8, -78), (14, -20)], mix(p.accent, p.light, 0.25)),
              polygon([(-26, 4), (-52, -14), (-46, -40)], p.light), circle(-12, -46, 4, p.near)]
    pawn = [polygon([(-20, 40), (-8, -4), (8, -4), (20, 40)], p.light),
            polygon([(0, -4), (8, -4), (20, 40), (0, 40)], mix(p.light, p.mid, 0.5)),
            polygon(regular(0, -18, 18, 6), p.light), polygon([(0, -36), (15.6, -27), (15.6, -9), (0, 0)],
                                                              mix(p.light, p.mid, 0.5))]
    return [*halo(p, 168, 120, 80, 1, 30), *board, *placed(pawn, 258, 196, scale=0.9),
            *placed(pawn, 82, 220, scale=0.9), *placed(knight, 168, 186, 0, 1.25), hills(r, 322, 6, p.near)]


def calculator(p, r):
    segments = {"a": [(-8, -18), (8, -18)], "b": [(10, -16), (10, -2)], "c": [(10, 2), (10, 16)],
                "d": [(-8, 18), (8, 18)], "e": [(-10, 2), (-10, 16)], "f": [(-10, -16), (-10, -2)],
                "g": [(-8, 0), (8, 0)]}
    digits = {"3": "abcdg", "7": "abc", "0": "abcdef", "1": "bc", "4": "bcfg", "5": "acdfg"}
    shown = [item for i, digit in enumerate("37014507")
             for item in placed([line(segments[name], p.near if i != 6 else p.accent, 4) for name in digits[digit]],
                                74 + i * 27, 78)]
    keys = [rect(58 + (i % 4) * 58, 130 + (i // 4) * 44, 46, 33,
                 p.accent if i == 15 else (p.mid if i % 4 == 3 else p.light), 6) for i in range(16)]
    glass = [ring(0, 0, 50, p.near, 12), circle(0, 0, 44, mix(p.sky, p.glow, 0.7)),
             line([(38, 38), (90, 90)], p.near, 18), pen("M-26 -10A28 28 " "0 0 1 -6 -27", p.light, 5)]
    return [rect(36, 24, 264, 292, p.near, 18), rect(44, 32, 248, 276, mix(p.near, p.mid, 0.55), 14),
            rect(54, 46, 228, 64, p.glow, 6), *shown, *keys, *placed(glass[:1] + glass[2:], 232, 222),
            rect(-10, 326, 356, 160, p.near)]


def tangram(p, r):
    unit = 66
    def piece(points, colour):
        return polygon([(x * unit, y * unit) for x, y in points], colour)
    colours = [p.accent, p.near, p.mid, mix(p.accent, p.light, 0.45), p.far, mix(p.mid, p.near, 0.5),
               mix(p.accent, p.near, 0.4)]
    fox = [piece([(0, 0), (0, -1), (-0.7, -0.6)], colours[3]), piece([(0, 0), (0, -1), (0.7, -0.6)], colours[0]),
           piece([(-0.7, -0.6), (0, 0), (0, 0.02), (-0.71, 0.1)], colours[6]),
           piece([(0, 0), (1.41, 1.41), (0, 2)], colours[1]), piece([(0, 0), (0, 2), (-1, 2), (-1, 1.6)], colours[2]),
           piece([(0, 2), (1.41, 1.41), (2, 2)], colours[0]),
           piece([(2, 2), (1.41, 1.41), (2, 0.7), (2.6, 1.3)], colours[5])]
    shade = [polygon([(40, 290), (300, 290), (336, 316), (20, 316)], mix(p.sky, p.far, 0.6))]
    return [*halo(p, 232, 92, 44, 2, 34), *shade, *placed(fox, 108, 182, scale=0.84),
            rect(-10, 312, 356, 160, p.near)]


def teapot(p, r):
    pot = [path("M-78 0Q-84 -62 0 -66Q84 -62 78 0Q70 50 40 56H-40Q-70 50 -78 0Z", p.accent),
           path("M70 6Q102 0 112 -44L128 -40Q124 30 70 36Z", p.accent),
           pen("M-72 -26Q-122 -34 -116 8Q-112 38 -70 28", p.accent, 13),
           path("M-40 -62Q0 -84 " "40 -62Z", mix(p.accent, p.near, 0.4)),
           circle(0, -80, 10, mix(p.accent, p.near, 0.4)), rect(-44, 54, 88, 8, p.near, 3),
           *[leaf(-30, 16, 52, turn, p.light) for turn in (-60, -20, 20)], circle(-30, 16, 6, p.light)]
    cups = [item for x in (80, 250)
            for item in (path(f"M{x - 28} 262H{x + 28}Q{x + 24} 292 {x} 294Q{x - 24} 292 {x - 28} 262Z", p.light),
                         ellipse(x, 263, 28, 6, p.mid))]
    steam = [pen(f"M{x} {y}q-14 -16 0 -32t0 -32", p.glow, 4) for x, y in ((80, 246), (250, 246), (168, 92))]
    screen = [rect(-10, -10, 356, 8, p.near), *[rect(x, -130, 5, 350, mix(p.sky, p.far, 0.8))
                                                for x in range(4, 340, 41)],
              *[rect(-10, y, 356, 5, mix(p.sky, p.far, 0.8)) for y in (-60, 40, 110)]]
    return [*screen[1:], circle(168, 130, 100, mix(p.sky, p.glow, 0.9)), ring(168, 130, 100, p.near, 6), *steam,
            *placed(pot, 164, 206, scale=0.82), *cups, rect(-10, 292, 356, 200, p.mid),
            rect(-10, 292, 356, 8, p.near), rect(-10, 320, 356, 160, p.near)]


def xiangqi(p, r):
    columns, rows = [60 + i * 27 for i in range(9)], [12 + i * 32 for i in range(10)]
    river = (rows[4], rows[5])
    grid = [line([(60, y), (276, y)], p.near, 1.8) for y in rows]
    for x in columns:
        whole = x in (columns[0], columns[-1])
        grid += [line(ends, p.near, 1.8)
                 for ends in ([[(x, rows[0]), (x, rows[9])]] if whole else [[(x, rows[0]), (x, river[0])],
                                                                            [(x, river[1]), (x, rows[9])]])]
    for top in (rows[0], rows[7]):
        grid += [line([(columns[3], top), (columns[5], top + 64)], p.near, 1.8),
                 line([(columns[5], top), (columns[3], top + 64)], p.near, 1.8)]

    def piece(column, row, size, colour, sign):
        x, y = columns[column], rows[row]
        return [circle(x + 2, y + 4, size, p.far), circle(x, y, size, p.light), ring(x, y, size - 3.5, colour, 2),
                text(x, y + size * 0.42, sign, size * 1.16, colour, spacing=0)]
    pieces = ((1, 2, p.near, "砲"), (7, 3, p.near, "卒"), (8, 0, p.near, "車"), (2, 7, p.accent, "炮"),
              (7, 8, p.accent, "馬"), (0, 6, p.accent, "兵"), (4, 0, p.near, "將"), (0, 3, p.near, "卒"))
    small = [item for column, row, colour, sign in pieces for item in piece(column, row, 16, colour, sign)]
    board = [rect(38, -10, 260, 332, p.glow, 4), rect(38, -10, 260, 6, p.mid), rect(38, 316, 260, 6, p.mid)]
    return [*placed([*board, *grid, *small, *piece(4, 5, 56, p.accent, "帥")], 10, -34, scale=0.94),
            rect(-10, 322, 356, 160, p.near)]


def puppets(p, r):
    screen = [rect(24, 10, 288, 230, p.light, 6), circle(168, 116, 104, mix(p.light, p.glow, 0.3)),
              circle(168, 116, 66, p.light)]
    warrior = [polygon([(-14, -18), (14, -18), (26, 50), (-26, 50)], p.near), circle(0, -34, 15, p.near),
               polygon([(-14, -44), (0, -74), (14, -44)], p.near), line([(10, -10), (46, -34)], p.near, 8),
               line([(46, -70), (46, 30)], p.accent, 4), line([(-10, -10), (-36, 14)], p.near, 8),
               pen("M-8 -60Q-34 -86 -48 -74", p.accent, 4), pen("M8 -60Q34 -86 48 -74", p.accent, 4),
               line([(-12, 50), (-22, 92)], p.near, 9), line([(12, 50), (22, 92)], p.near, 9),
               rect(-20, 8, 40, 7, p.accent)]
    dancer = [path("M-12 -14H12L40 70H-40Z", p.accent), circle(0, -30, 14, p.near), circle(0, -48, 9, p.near),
              pen("M10 -8Q44 -20 54 -52Q74 -40 80 -62", p.accent, 5), pen("M-10 -8Q-40 10 -64 -6", p.accent, 5),
              line([(-12, 70), (-12, 92)], p.near, 8), line([(12, 70), (12, 92)], p.near, 8)]
    sticks = [line([(108, 190), (92, 300)], p.mid, 3), line([(160, 120), (150, 300)], p.mid, 3),
              line([(226, 180), (240, 300)], p.mid, 3)]
    curtain = [path(f"M{x} -10H{x + 42}V236Q{x + 30} 250 {x + 20} 236T{x} 240Z", p.accent) for x in (-14, 308)]
    seats = [item for x, size in ((40, 1), (102, 0.9), (170, 1.05), (240, 0.92), (302, 1)) for item in
             placed([circle(0, 0, 15, p.mid), path("M-26 50Q-26 16 0 14Q26 16 26 50Z", p.mid)], x, 292, scale=size)]
    scallops = [path(f"M{-10 + i * 40} 20a20 18 0 0 0 40 0z", p.accent) for i in range(9)]
    return [*screen, *sticks, *placed(warrior, 110, 130, scale=0.98), *placed(dancer, 226, 132, scale=0.98),
            rect(-10, -10, 356, 30, p.mid), *scallops, *curtain, rect(-10, 240, 356, 30, p.mid),
            rect(-10, 266, 356, 220, p.near), *seats, rect(-10, 330, 356, 160, p.near)]
