"""Scenes on land and in the sky: roads, roofs, mountains, night streets, kites, rockets."""
import math

from .elements import (DEEP, SIDE, bamboo, bird, cloud, envelope, fir, gear, halo, hills, house, kite, lantern, leaf,
                       peaks, rain, snow, stars, water)
from .svg import circle, ellipse, line, mix, path, pen, placed, polygon, rect


def many_kites(p, r):
    colours = [(p.accent, p.mid), (p.light, p.far), (p.near, p.mid)]
    places = [(70, 60, 0.62, -18), (150, 36, 0.44, 12), (236, 62, 0.7, 20), (296, 130, 0.5, 30), (118, 124, 0.84, -8),
              (204, 146, 0.56, 16), (44, 160, 0.46, -26), (258, 204, 0.42, 24), (24, 40, 0.34, -20)]
    strings = [pen(f"M{x} {y}Q{(x + 168) / 2 + 20} {(y + 300) / 2 + 20} 168 296", mix(p.near, p.sky, 0.35), 1.3)
               for x, y, _, _ in places]
    kites = [item for i, (x, y, size, turn) in enumerate(places)
             for item in kite(x, y, size, turn, *colours[i % 3], p.near)]
    flyer = [path("M-15 0Q-15 -32 0 -36Q15 -32 15 0Z", p.near), circle(0, -46, 11, p.near),
             line([(4, -28), (18, -46)], p.near, 5)]
    return [*halo(p, 200, 236, 48, 2, 40), *strings, *kites, hills(r, 266, 30, mix(p.far, p.mid, 0.5)),
            *placed(flyer, 160, 312), hills(r, 300, 22, p.near)]


def moon_kites(p, r):
    return [*stars(p, r, 70), *halo(p, 150, 130, 84, 1, 26),
            pen("M132 122Q110 230 150 330", mix(p.near, p.light, 0.3), 1.4),
            pen("M244 226Q190 280 176 330", mix(p.near, p.light, 0.3), 1.4),
            *kite(130, 112, 1.1, -16, p.accent, mix(p.accent, p.near, 0.4), p.near),
            *kite(246, 216, 0.6, 22, p.light, p.far, p.light), *cloud(54, 214, 0.9, mix(p.far, p.sky, 0.3)),
            *cloud(300, 84, 0.7, mix(p.far, p.sky, 0.3)), hills(r, 252, 44, p.mid, 3), hills(r, 296, 26, p.near)]


def one_kite(p, r):
    streaks = [pen(f"M{-20 + i * 22} {300 - i * 54}q60 -26 130 -16", mix(p.sky, p.glow, 0.9), 5) for i in range(5)]
    return [*halo(p, 262, 74, 34, 2, 32), *cloud(70, 58, 0.9, p.light), *cloud(284, 188, 0.7, p.light), *streaks,
            pen("M176 148Q110 220 84 306", p.near, 1.8), *kite(184, 142, 1.9, 26, p.accent, p.near, p.accent),
            water(286, p.mid, 5, 60), polygon([(40, 318), (60, 302), (118, 300), (150, 318)], p.near),
            water(316, p.near, 5, 70)]


def village(p, r):
    rows = []
    for row, (base, wall, roof) in enumerate(((226, mix(p.far, p.light, 0.4), p.mid),
                                              (272, p.far, mix(p.mid, p.near, 0.4)), (320, p.mid, p.near))):
        x = -16 + row * 14
        while x < SIDE:
            width = r.uniform(38, 58)
            rows += house(x, base, width, r.uniform(30, 58), wall, roof, p.light, r.random() < 0.75)
            x += width + r.uniform(2, 12)
    letters = [item for x, y, size, turn in ((80, 70, 0.86, -16), (176, 44, 0.6, 10), (248, 96, 1.05, 20),
                                             (150, 118, 0.5, -24), (304, 36, 0.46, -10))
               for item in envelope(x, y, size, turn, p.light, p.mid, p.accent)]
    trails = [pen(f"M{x - 90} {y + 50}q40 -8 60 -34", mix(p.sky, p.far, 0.8), 2)
              for x, y in ((84, 72), (250, 98), (182, 48))]
    return [*halo(p, 168, 146, 46, 2, 40), hills(r, 164, 30, mix(p.sky, p.far, 0.7)), *trails, *letters, *rows,
            path(f"M-10 {DEEP}V322Q168 306 346 322V{DEEP}Z", p.near)]


def fireflies(p, r):
    lights = []
    for _ in range(26):
        x, y, size = r.uniform(10, 326), r.uniform(20, 300), r.uniform(1.6, 3.6)
        lights += [circle(x, y, size * 3, mix(p.sky, p.light, 0.22)), circle(x, y, size, p.light)]
    box = [rect(-9, 0, 18, 110, p.near), path("M-46 0V-70Q-46 -104 0 -104Q46 -104 46 -70V0Z", p.accent),
           rect(-54, -8, 108, 14, mix(p.accent, p.near, 0.4), 4), rect(-28, -66, 56, 9, p.near, 3),
           *envelope(0, -30, 0.62, 0, p.light, p.mid, p.accent)]
    grass = [pen(f"M{x} 330Q{x + r.uniform(-4, 4)} {r.uniform(270, 300)} {x + r.uniform(-16, 16)} "
                 f"{r.uniform(240, 292)}", p.near, 3) for x in range(0, 340, 9)]
    return [hills(r, 120, 60, p.far), hills(r, 190, 40, p.mid),
            *[fir(x, 232, h, mix(p.mid, p.near, 0.5)) for x, h in ((24, 120), (62, 90), (276, 100), (316, 140))],
            hills(r, 236, 24, mix(p.mid, p.near, 0.6)), *lights[:30], *placed(box, 168, 226, 0, 1.12), *lights[30:],
            *grass, rect(-10, 322, 356, 160, p.near)]


def moon_post(p, r):
    wings = path("M0 0Q-58 -66 -104 -44Q-78 -36 -74 -20Q-50 -24 -44 -4Q-20 -8 0 10Z", p.far)
    letter = [*placed([wings], -24, -6, 8), *placed([wings], 24, -6, -8, flip=True),
              *envelope(0, 0, 1.5, 0, p.accent, p.near, p.light)]
    city = []
    x = -6
    while x < SIDE:
        width, height = r.uniform(22, 40), r.uniform(34, 92)
        city += [rect(x, 316 - height, width, height + 20, p.near)]
        city += [rect(x + 6 + 10 * i, 324 - height + 13 * k, 5, 6, p.light) for i in range(int((width - 8) / 10))
                 for k in range(int(height / 15)) if r.random() < 0.4]
        x += width + r.choice([0, 0, 6])
    return [*stars(p, r, 90), *halo(p, 168, 130, 92, 2, 26), circle(130, 108, 13, mix(p.light, p.glow, 0.16)),
            circle(204, 84, 9, mix(p.light, p.glow, 0.16)), circle(190, 190, 12, mix(p.light, p.glow, 0.16)),
            *placed(letter, 172, 158, -8), hills(r, 248, 26, p.far), *city, rect(-10, 316, 356, 160, p.near)]


def paper_plane(p, r):
    plane = [polygon([(-88, 30), (96, -46), (-22, 52)], p.light),
             polygon([(-22, 52), (96, -46), (-6, 84)], mix(p.light, p.far, 0.65)),
             polygon([(-22, 52), (-6, 84), (10, 62)], p.mid)]
    trail = ('<path d="M-20 300C60 330 120 260 92 226C70 202 40 236 78 250C110 262 130 232 150 196" fill="none" '
             f'stroke="{p.accent}" stroke-width="3.4" stroke-dasharray="3 10" stroke-linecap="round"/>')
    return [*halo(p, 84, 90, 44, 2, 36), *cloud(246, 50, 1, p.light), *cloud(60, 170, 0.8, p.light),
            *cloud(304, 196, 0.7, p.light), water(246, p.far, 4, 54), trail, *placed(plane, 196, 130, -4, 1.1),
            water(276, mix(p.far, p.mid, 0.7), 5, 66, 0.4), hills(r, 296, 16, p.near),
            *[item for x in (34, 84, 262, 306) for item in house(x, 312, 30, 20, p.mid, p.near, p.light)]]


def cable_car(p, r):
    shape, summits = peaks(r, 132, 110, p.far, 4)
    nearer, _ = peaks(r, 190, 110, p.mid, 5)
    tower = [polygon([(-11, 0), (11, 0), (18, 84), (-18, 84)], p.light), rect(-13, -24, 26, 22, p.accent),
             path("M-16 -24Q0 -46 16 -24Z", p.near), rect(-18, -2, 36, 5, p.near)]
    cab = [line([(0, -46), (0, -26)], p.near, 4),
           path("M-52 -26H52Q62 -26 62 -14V34Q62 50 46 50H-46Q-62 50 -62 34V-14Q-62 -26 -52 -26Z", p.accent),
           *[rect(-50 + i * 35, -14, 30, 28, p.light, 4) for i in range(3)],
           path("M-6 14Q-10 -2 0 -6L-2 -12L5 -7L11 -11L10 -3Q16 6 12 14Z", p.near),
           rect(-62, 24, 124, 6, mix(p.accent, p.near, 0.45))]
    return [*stars(p, r, 60, 120), *halo(p, 80, 76, 30, 2, 30), shape, *snow(summits, 30, p.light),
            *placed(tower, summits[2][0], summits[2][1] - 50, scale=0.9), nearer,
            line([(-10, 284), (SIDE + 10, 130)], p.near, 2.6), *placed(cab, 158, 254, -3),
            *[fir(x, 336, h, p.near) for x, h in ((12, 90), (46, 60), (284, 74), (318, 110))],
            hills(r, 306, 18, p.near)]


def caravan(p, r):
    shape, summits = peaks(r, 60, 150, p.far, 3)
    nearer, low = peaks(r, 140, 100, mix(p.far, p.mid, 0.6), 5)
    def sledge(load):
        return [path("M-26 -4V-22Q0 -44 26 -22V-4Z", load), rect(-28, -6, 56, 7, p.near, 3),
                pen("M-34 8H30Q42 6 42 -6", p.near, 3.4), line([(-20, 0), (-20, 8)], p.near, 3),
                line([(20, 0), (20, 8)], p.near, 3)]
    dog = [path("M-22 0V-14Q-10 -26 14 -18L22 -30L26 -20L36 -18Q34 -8 22 -8V0H16V-8H-14V0Z", p.near)]
    train = [item for i, load in enumerate((p.accent, p.mid, p.accent))
             for item in placed(sledge(load), 78 + i * 82, 288 - i * 15, -10, 0.98)]
    flakes = [circle(r.uniform(0, SIDE), r.uniform(-90, 330), r.uniform(1.2, 3), p.light) for _ in range(60)]
    return [*halo(p, 250, 70, 26, 2, 28), shape, *snow(summits, 46, p.light), nearer, *snow(low, 26, p.light),
            hills(r, 230, 30, mix(p.far, p.light, 0.4)), path(f"M-10 {DEEP}V314Q120 300 346 236V{DEEP}Z", p.light),
            *train, *placed(dog, 304, 248, -12, 0.8), *flakes,
            path(f"M-10 {DEEP}V330Q170 330 346 288V{DEEP}Z", p.near)]


def camels(p, r):
    camel = [path("M-40 0L-36 -34Q-46 -54 -30 -58Q-24 -78 -14 -62Q-8 -54 -2 -62Q8 -80 18 -58Q30 -54 34 -66L38 -92"
                  "Q40 -102 54 -98L64 -90L62 -84" "L50 -84L46 -54Q42 -34 28 -32L30 0H23L18 -28L-22 -28L-33 0" "Z",
                  p.near), path("M-22 -62Q-4 -76 14 -62L10 -44H-18Z", p.accent)]
    return [*halo(p, 236, 104, 46, 3, 34), *placed([path("M0 0q18 -40 46 -22q30 -8 40 22z", mix(p.far, p.sky, 0.4))],
                                                   24, 178), path(f"M-10 {DEEP}V196Q90 150 190 200T346 190V{DEEP}Z",
                                                                  p.far), *placed(camel, 70, 236, 2, 0.6),
            *placed(camel, 134, 242, 0, 0.72), path(f"M-10 {DEEP}V228Q90 250 180 236T346 254V{DEEP}Z",
                                                    mix(p.far, p.mid, 0.6)), *placed(camel, 228, 274, -2, 1.05),
            path(f"M-10 {DEEP}V262Q120 300 220 272T346 282V{DEEP}Z", p.mid),
            path(f"M-10 {DEEP}V322Q140 292 346 330V{DEEP}Z", p.near)]


def night_train(p, r):
    bands = [pen(f"M-20 {60 + i * 26}C80 {10 + i * 22} 180 {120 + i * 18} 356 {30 + i * 24}",
                 mix(p.sky, colour, share), 15)
             for i, (colour, share) in enumerate(((p.accent, 0.3), (p.glow, 0.8), (p.accent, 0.5), (p.glow, 0.55)))]
    cars = [item for i in range(3) for item in (rect(-150 + i * 72, -36, 66, 38, p.accent if i == 1 else p.mid, 5),
                                                *[rect(-143 + i * 72 + k * 20, -27, 13, 13, p.light, 2)
                                                  for k in range(3)], rect(-150 + i * 72, -8, 66, 5, p.light))]
    engine = [path("M66 -36H100V-24H132Q146 -22 146 2H66Z", p.near), rect(74, -29, 18, 14, p.light, 2),
              rect(112, -44, 14, 22, p.near), rect(108, -50, 22, 8, p.accent, 2),
              polygon([(146, -16), (146, -4), (196, 8), (196, -34)], mix(p.light, p.sky, 0.45))]
    smoke = [circle(118 - i * 24, -62 - i * 7, 9 + i * 4, mix(p.light, p.sky, 0.25 + 0.1 * i)) for i in range(5)]
    wheels = [circle(-138 + i * 24, 6, 7, p.near) for i in range(12)]
    shape, summits = peaks(r, 130, 100, p.far, 4)
    return [*stars(p, r, 90, 160), *bands, shape, *snow(summits, 28, p.light),
            hills(r, 214, 20, mix(p.far, p.light, 0.25)),
            *[fir(x, 258, h, p.mid) for x, h in ((20, 90), (54, 66), (250, 74), (290, 96), (322, 70))],
            *placed(cars + engine + smoke, 160, 268), *placed(wheels, 160, 268), rect(-10, 278, 356, 200, p.light),
            rect(-10, 278, 356, 4, p.near), *[rect(x, 282, 12, 5, p.near) for x in range(-4, 340, 24)],
            hills(r, 308, 16, p.near)]


def night_bakery(p, r):
    roofs = []
    for x, width, height in ((-14, 78, 110), (62, 92, 74), (212, 70, 96), (280, 80, 126)):
        roofs += house(x, 320, width, height, p.mid, p.near, p.light)
    loaf = [path("M-74 22Q-86 -34 -40 -38Q0 -56 40 -38Q86 -34 74 22Q0 36 -74 22Z", p.accent),
            *[pen(f"M{-44 + i * 34} 4Q{-36 + i * 34} -22 {-20 + i * 34} -26", p.light, 6) for i in range(3)]]
    steam = [pen(f"M{x} 92q-12 -14 0 -28t0 -28", mix(p.light, p.sky, 0.35), 3.4) for x in (138, 168, 198)]
    shop = [rect(124, 222, 108, 110, mix(p.accent, p.near, 0.3)),
            *[path(f"M{118 + i * 24} 222h24v16a12 12 0 0 1 -24 0z", p.light if i % 2 else p.accent)
              for i in range(5)], rect(136, 256, 44, 40, p.light, 3), rect(192, 250, 30, 80, p.light, 3)]
    return [*stars(p, r, 80, 150), *halo(p, 168, 136, 92, 1, 24), *steam, *placed(loaf, 168, 136, -6), *roofs, *shop,
            rect(-10, 320, 356, 160, p.near)]


def lantern_market(p, r):
    lamps = []
    for row, (y, size, count) in enumerate(((34, 0.5, 6), (92, 0.74, 4), (168, 1.1, 3))):
        lamps.append(pen(f"M-10 {y - 34 * size - 8}Q168 {y - 4} 346 {y - 34 * size - 8}", p.near, 2))
        for i in range(count):
            x = SIDE * (i + 0.5) / count + (row % 2) * 6
            sag = 12 * (1 - abs(x - 168) / 168)
            colour = (p.accent, p.light, mix(p.accent, p.light, 0.5))[(i + row) % 3]
            lamps += [circle(x, y + sag + 14, 44 * size, mix(p.sky, p.glow, 0.6)),
                      *lantern(x, y + sag + 14, size, colour, p.near, 8)]
    people = [item for x, size in ((38, 0.8), (92, 1), (146, 0.86), (226, 1.05), (282, 0.9))
              for item in placed([path("M-20 60Q-24 0 0 -4Q24 0 20 60Z", p.near), circle(0, -16, 13, p.near)], x, 290,
                                 scale=size)]
    stalls = [rect(-10, 236, 100, 90, p.mid), rect(252, 230, 100, 96, p.mid),
              polygon([(-10, 240), (4, 212), (96, 212), (106, 240)], p.accent),
              polygon([(240, 234), (254, 206), (346, 206), (346, 234)], p.far)]
    return [*stalls, *lamps, *people, rect(-10, 322, 356, 160, p.near)]


def eleven_lanterns(p, r):
    lamps = []
    for i in range(11):
        row, first = (0, 0) if i < 4 else (1, 4) if i < 7 else (2, 7)
        x, y = 42 + (i - first) * 84 + (42 if row == 1 else 0), 40 + row * 86
        if i == 9:
            brightest = [circle(x, y, 64, mix(p.sky, p.glow, 0.5)), circle(x, y, 46, p.glow),
                         *lantern(x, y, 1.1, p.accent, p.near, 260)]
        else:
            lamps += lantern(x, y, 0.66, mix(p.light, p.far, 0.35 if i % 3 else 0.05), p.near, 400)
    watch = [path("M-22 0Q-24 -56 0 -62Q24 -56 22 0Z", p.near), circle(0, -68, 12, p.near),
             polygon([(-24, -72), (24, -72), (0, -90)], p.near), line([(24, 0), (24, -80)], p.near, 3)]
    return [*stars(p, r, 40, 300), *brightest, *lamps, hills(r, 258, 24, p.far), *placed(watch, 76, 318, scale=0.9),
            rect(-10, 318, 356, 160, p.near)]


def cathedral(p, r):
    def window(x, width, height):
        left, right, spring = x - width / 2, x + width / 2, 300 - height
        return (f"M{left} 300V{spring}Q{left} {spring - width * 0.9} {x} {spring - width * 1.15}"
                f"Q{right} {spring - width * 0.9} {right} {spring}V300Z")
    panes = [rect(124 + (i % 3) * 30, 60 + (i // 3) * 41, 28, 38, colour)
             for i, colour in enumerate(r.sample([p.accent, p.light, p.glow, mix(p.accent, p.glow, 0.5),
                                                  mix(p.glow, p.light, 0.4), p.glow] * 3, 18))]
    nave = [path(window(168, 148, 180), p.near),
            '<clipPath id="rose"><path d="' + window(168, 96, 196) + '"/></clipPath>', '<g clip-path="url(#rose)">',
            rect(100, 0, 140, 310, p.mid), *panes, "</g>", circle(168, 62, 24, p.near),
            *[circle(168 + 13 * math.cos(a), 62 + 13 * math.sin(a), 6.5, p.light)
              for a in [i * math.pi / 3 for i in range(6)]]]
    sides = [path(window(x, 66, 116), p.near) for x in (52, 284)] + [path(window(x, 42, 112), mix(p.far, p.glow, 0.5))
                                                                     for x in (52, 284)]
    drops = rain(r, 80, mix(p.sky, p.light, 0.45), 330, 0.05, 22)
    return [*drops[:50], *sides, *nave, *drops[50:], rect(-10, 300, 356, 200, p.near),
            *[ellipse(168, 312 + i * 11, 40 - i * 8, 2.4, p.light) for i in range(3)]]


def attic(p, r):
    frame = [polygon([(-10, 150), (168, -60), (346, 150), (346, DEEP), (-10, DEEP)], p.mid),
             polygon([(-10, 172), (168, -36), (346, 172), (346, 146), (168, -66), (-10, 146)], p.near)]
    steps = [rect(40 + i * 36, 300 - i * 34, 330, 40, mix(p.glow, p.near, 0.25 + 0.13 * i)) for i in range(5)]
    child = [path("M-16 0Q-18 -36 0 -40Q18 -36 16 0Z", p.accent), circle(0, -50, 12, p.near),
             line([(10, -30), (34, -58)], p.near, 5)]
    moon = [circle(226, 92, 66, mix(p.mid, p.glow, 0.45)), circle(226, 92, 48, p.light),
            circle(212, 80, 8, mix(p.light, p.far, 0.25)), circle(240, 104, 11, mix(p.light, p.far, 0.25)),
            circle(236, 72, 5, mix(p.light, p.far, 0.25))]
    boxes = [rect(10, 268, 54, 40, p.near, 2), rect(20, 236, 36, 32, p.far, 2)]
    return [*stars(p, r, 60, 80), *frame, *boxes, *steps, *moon, *placed(child, 168, 198, scale=1.1),
            rect(-10, 322, 356, 160, p.near)]


def meteor(p, r):
    tail = [polygon([(132, 222), (92, 180), (376, -76), (420, -34)], mix(p.sky, p.glow, 0.6)),
            polygon([(128, 214), (98, 186), (380, -62), (410, -34)], mix(p.sky, p.accent, 0.6)),
            polygon([(122, 208), (104, 192), (380, -52), (398, -36)], p.light)]
    rock = [circle(0, 0, 44, p.accent), circle(-14, -10, 9, mix(p.accent, p.near, 0.35)),
            circle(14, 14, 12, mix(p.accent, p.near, 0.35)), circle(12, -20, 5, mix(p.accent, p.near, 0.35)),
            pen("M-26 12q5 -6 10 0", p.near, 3), pen("M-6 18q5 -6 10 0", p.near, 3),
            pen("M-18 26q5 5 11 1", p.near, 3)]
    planet = [circle(250, 262, 34, p.far), ellipse(250, 262, 58, 12, mix(p.far, p.light, 0.4)),
              path("M216 262a34 34 0 0 1 68 0z", p.far)]
    return [*stars(p, r, 130, 300), *planet, *tail, *placed(rock, 112, 206), hills(r, 300, 18, p.mid),
            hills(r, 318, 10, p.near)]


def rocket(p, r):
    ship = [path("M-22 62H22L14 104Q0 118 -14 104Z", p.accent), path("M-11 64H11L6 92Q0 98 -6 92Z", p.light),
            polygon([(-30, 30), (-58, 76), (-24, 64)], p.accent), polygon([(30, 30), (58, 76), (24, 64)], p.accent),
            path("M0 -100C34 -66 40 -6 30 66H-30C-40 -6 -34 -66 0 -100Z", p.light),
            path("M0 -100C16 -84 26 -62 30 -40H-30C-26 -62 -16 -84 0 -100Z", p.accent), circle(0, -8, 15, p.near),
            circle(0, -8, 9, p.glow)]
    cases = [item for x, y, turn, size in ((70, 116, -20, 1), (266, 90, 18, 0.8), (86, 236, 24, 0.7))
             for item in placed([rect(-24, -16, 48, 34, p.accent if turn > 0 else p.far, 4),
                                 pen("M-9 -16v-8h18v8", p.light, 3), rect(-24, -2, 48, 4, p.near)], x, y, turn, size)]
    moons = [circle(52, 46, 15, p.far), circle(296, 190, 22, p.far), circle(246, 26, 8, p.glow),
             circle(30, 180, 7, p.glow), circle(132, 30, 5, p.light), circle(310, 60, 5, p.light),
             circle(214, 250, 6, p.glow)]
    smoke = [circle(168 + dx, 306 + dy, size, colour)
             for dx, dy, size, colour in ((-60, 6, 30, p.far), (58, 4, 34, p.far), (-24, -4, 28, p.glow),
                                          (24, -2, 26, p.glow), (0, 10, 30, p.light))]
    return [*stars(p, r, 110, 280), *moons, *cases, *smoke, *placed(ship, 168, 152, 0, 1.1),
            rect(-10, 318, 356, 160, p.near)]


def lighthouse_race(p, r):
    beams = [polygon([(168, 92), (168 + 400 * math.cos(a), 92 + 400 * math.sin(a)),
                      (168 + 400 * math.cos(a + 0.22), 92 + 400 * math.sin(a + 0.22))], mix(p.sky, p.glow, 0.8))
             for a in [i * math.pi / 4 + 0.2 for i in range(8)]]
    tower = [polygon([(-16, 10), (16, 10), (26, 110), (-26, 110)], p.light), rect(-14, -14, 28, 26, p.accent),
             path("M-20 -12Q0 -40 20 -12Z", p.light)]
    road = [path(f"M150 196Q30 230 60 {DEEP}H330Q330 250 186 196Z", p.mid),
            pen("M166 200Q110 240 130 330", p.light, 3), pen("M178 200Q240 240 236 330", p.light, 3)]
    def car(colour):
        return [path("M-34 6Q-36 -10 -16 -12L-6 -24H14L24 -12Q38 -10 36 6Z", colour), circle(-20, 7, 8, p.near),
                circle(20, 7, 8, p.near), rect(-2, -20, 13, 9, p.near, 2)]
    return [*beams, hills(r, 186, 14, p.far), *placed(tower, 168, 96), *road,
            *placed(car(p.accent), 106, 268, -8, 1.1), *placed(car(p.light), 244, 300, 6, 1.25),
            rect(-10, 322, 356, 160, p.near)]


def relay_birds(p, r):
    flock = [bird(24 + i * 25 + r.uniform(-6, 6), 214 - 84 * math.sin(i * 0.3) + r.uniform(-26, 26), 0.5 + i * 0.11,
                  p.near) for i in range(9)]
    tower = [rect(246, 128, 60, 220, p.near), polygon([(240, 130), (276, 70), (312, 130)], p.near),
             rect(262, 150, 28, 40, p.light, 14), path("M266 178Q276 154 286 178Z", p.near)]
    return [*halo(p, 120, 130, 56, 3, 36), hills(r, 226, 30, p.far), *[item for group in flock for item in group],
            hills(r, 266, 22, p.mid), *tower, hills(r, 304, 18, p.near)]


def orchard(p, r):
    def machine_tree(x, base, size):
        parts = [rect(-6, -70, 12, 74, p.near), circle(0, -104, 50, p.mid), circle(-32, -80, 30, p.mid),
                 circle(32, -80, 30, p.mid)]
        for dx, dy, radius, colour in ((-26, -96, 17, p.accent), (16, -118, 20, p.light), (26, -80, 15, p.accent),
                                       (-6, -72, 12, p.light)):
            parts += gear(dx, dy, radius, 8, colour, p.mid, dx)
        return placed(parts, x, base, scale=size)
    basket = [path("M-30 -20H30L22 14H-22Z", p.accent),
              *[item for x in (-16, 2, 18) for item in gear(x, -24, 12, 8, p.light, p.accent, x * 3)]]
    return [*halo(p, 258, 70, 32, 2, 30), hills(r, 180, 40, p.far), *machine_tree(52, 236, 0.7),
            *machine_tree(286, 240, 0.76), hills(r, 226, 20, mix(p.far, p.mid, 0.4)), *machine_tree(166, 284, 1.22),
            hills(r, 276, 14, mix(p.mid, p.near, 0.5)), *placed(basket, 256, 306), hills(r, 312, 10, p.near)]


def balcony(p, r):
    def pot(x, base, colour, plant):
        return [*placed(plant, x, base - 44), polygon([(x - 24, base - 46), (x + 24, base - 46), (x + 17, base),
                                                       (x - 17, base)], colour),
                rect(x - 28, base - 52, 56, 11, colour, 3)]
    flower = [line([(0, 0), (0, -60)], p.near, 4),
              *[leaf(0, -18 - i * 14, 26, turn, p.mid) for i, turn in enumerate((-30, 210, -24))],
              *[circle(16 * math.cos(a), -72 + 16 * math.sin(a), 10, p.accent)
                for a in [i * math.pi / 3 for i in range(6)]], circle(0, -72, 9, p.light)]
    bush = [circle(dx, dy, 20, colour) for dx, dy, colour in ((-16, -14, p.mid), (16, -14, p.mid),
                                                              (0, -34, mix(p.mid, p.far, 0.5)))]
    spear = [leaf(0, 0, 84, turn, mix(p.mid, p.near, 0.3)) for turn in (-60, -78, -94, -112, -128)]
    rail = [rect(-10, 250, 356, 8, p.near), *[rect(x, 250, 5, 80, p.near) for x in range(2, 340, 22)]]
    seasons = [circle(60, 60, 20, p.accent), *cloud(270, 70, 0.9, p.light)]
    return [*halo(p, 60, 60, 20, 2, 26), *seasons, hills(r, 176, 34, p.far),
            hills(r, 214, 18, mix(p.far, p.mid, 0.5)), *rail, *pot(66, 316, p.accent, flower),
            *pot(150, 316, p.light, bush), *pot(222, 316, p.accent, spear),
            *pot(292, 316, p.light, [*placed(flower, scale=0.8)]), rect(-10, 314, 356, 160, p.near)]


def messenger(p, r):
    courier = [path("M-24 0Q-26 -58 0 -64Q26 -58 24 0Z", p.accent), circle(0, -72, 13, mix(p.accent, p.light, 0.45)),
               path("M-42 -70Q0 -112 42 -70Q0 -82 -42 -70Z", p.near), line([(28, 10), (20, -70)], p.near, 4),
               *envelope(-18, -28, 0.5, -12, p.light, p.mid, p.accent)]
    lane = path(f"M150 190Q186 214 150 236Q90 262 176 300L150 {DEEP}H300Q330 300 240 268Q176 246 204 224Q216 206 "
                f"176 190Z", p.glow)
    canes = [item for x, width, share in ((18, 15, 0), (50, 10, 0.35), (88, 7, 0.7), (252, 8, 0.7), (282, 12, 0.3),
                                          (312, 16, 0)) for item in bamboo(x, width, mix(p.near, p.far, share),
                                                                           mix(p.mid, p.far, share))]
    leaves = [leaf(r.choice([24, 54, 90, 254, 288, 318]), r.uniform(-40, 210), r.uniform(28, 54),
                   r.choice([20, 40, 150, 165]), mix(p.near, p.mid, r.random())) for _ in range(22)]
    return [*halo(p, 170, 112, 40, 2, 34), hills(r, 150, 50, mix(p.sky, p.far, 0.6), 3), hills(r, 186, 24, p.far),
            lane, *canes, *leaves, *placed(courier, 176, 294, scale=0.92),
            path(f"M-10 {DEEP}V318Q168 334 346 314V{DEEP}Z", p.near)]


def roof_tiles(p, r):
    tiles = []
    for row in range(5):
        for i in range(-1, 9):
            x, y = i * 44 + (22 if row % 2 else 0), 176 + row * 30
            missing = (row, i) in ((1, 3), (2, 5), (3, 2))
            colour = p.near if missing else r.choice([p.accent, mix(p.accent, p.mid, 0.35),
                                                      mix(p.accent, p.light, 0.25)])
            tiles.append(path(f"M{x - 22} {y}h44v20a22 18 0 0 1 -44 0z", colour))
    tiles = tiles[::-1]
    chimney = [rect(232, 96, 44, 84, p.mid), rect(226, 88, 56, 14, p.near)]
    cat = [path("M-18 0Q-22 -30 0 -34L-4 -54L6 -46L16 -54L18 -36Q26 -24 16 0Z", p.near),
           pen("M16 -2Q40 -4 36 -30", p.near, 6)]
    return [*halo(p, 84, 84, 36, 2, 34), *cloud(254, 40, 0.9, p.light), *chimney, *tiles,
            rect(-10, 164, 356, 16, p.mid, 4), *placed(cat, 122, 166, 0, 1.1), rect(-10, 318, 356, 160, p.near)]
