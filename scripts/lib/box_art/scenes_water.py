"""Scenes with water: boats, fish, rivers, rain."""
import math

from .elements import (DEEP, SIDE, bamboo, bird, cloud, crescent, glints, halo, hills, lantern, leaf, paper_boat,
                       rain, stars, tree, water)
from .svg import circle, ellipse, line, mix, path, pen, placed, polygon, rect, ring


def ferry(p, r):
    hull = [polygon([(-82, 0), (82, 0), (66, 24), (-70, 24)], mix(p.accent, p.near, 0.15)),
            rect(-77, 8, 152, 4, p.light), rect(-52, -22, 104, 22, p.light, 3),
            rect(-30, -40, 52, 18, mix(p.light, p.mid, 0.3), 3), rect(30, -58, 12, 36, p.near),
            rect(28, -50, 16, 6, p.accent)]
    windows = [rect(-44 + i * 19, -16, 10, 9, p.mid, 1) for i in range(5)]
    return [*stars(p, r, 60), *halo(p, 236, 92, 34), hills(r, 190, 24, p.far), water(232, p.mid, 4),
            *placed(hull + windows, 140, 238), water(262, mix(p.mid, p.near, 0.55), 5, 48, 0.4),
            *glints(r, 240, 250, 326, mix(p.light, p.mid, 0.45), 24), water(318, p.near, 6, 64, 0.2)]


def lantern_boat(p, r):
    wood = mix(p.accent, p.near, 0.45)
    boat = [path("M-70 -4Q0 26 70 -4Q52 26 30 28H-30Q-52 26 -70 -4Z", wood), pen("M-28 4V-34H26V4", wood, 4),
            path("M-36 -32Q0 -56 34 -32Z", wood), line([(48, 0), (60, -58)], wood, 3.5),
            *lantern(60, -34, 0.5, p.accent, p.near, 12)]
    return [*stars(p, r, 80), crescent(96, 96, 40, p.light), hills(r, 172, 40, p.far), hills(r, 206, 24, p.mid),
            water(240, mix(p.mid, p.sky, 0.35), 3), *placed(boat, 150, 238, scale=1.15),
            water(268, mix(p.mid, p.near, 0.45), 5, 60), *glints(r, 219, 262, 326, p.accent, 20),
            water(322, p.near, 5, 60)]


def feather_boat(p, r):
    plume = [path("M0 0C-40 -40 -34 -116 10 -150C40 -112 40 -44 0 0Z", p.mid), line([(2, 8), (8, -128)], p.light, 3)]
    barbs = [line([(3, -20 - i * 22), (side * 24 + 4, -38 - i * 22)], mix(p.mid, p.light, 0.6), 1.8) for i in range(4)
             for side in (-1, 1)]
    boat = [path("M-78 0H78Q60 36 28 36H-28Q-60 36 -78 0Z", p.accent), rect(-80, -5, 160, 9, p.near, 4)]
    pebble = [path("M-34 0Q-40 -44 -4 -48Q38 -46 34 0Z", mix(p.near, p.mid, 0.3)), circle(-10, -24, 3, p.light),
              circle(8, -24, 3, p.light)]
    return [*halo(p, 168, 130, 58, 2, 34), hills(r, 220, 18, p.far), *placed(plume + barbs, 192, 230, 12),
            *placed(pebble, 132, 236, 0, 1.15), *placed(boat, 168, 236), water(262, p.mid, 6, 60),
            water(298, p.near, 6, 72, 0.3)]


def sea_turtle(p, r):
    flipper = path("M0 0C36 -12 70 8 84 44C54 40 22 32 0 0Z", p.mid)
    plates = [polygon(points, mix(p.accent, p.light, 0.35))
              for points in ([(-16, -14), (16, -14), (26, 12), (0, 30), (-26, 12)],
                             [(-20, -22), (20, -22), (14, -46), (-14, -46)],
                             [(-24, 22), (-6, 36), (-8, 56), (-32, 42)], [(24, 22), (6, 36), (8, 56), (32, 42)])]
    turtle = [*placed([flipper], 34, -26, -8), *placed([flipper], -34, -26, 8, flip=True),
              *placed([flipper], 30, 44, 40, 0.6), *placed([flipper], -30, 44, -40, 0.6, True),
              ellipse(0, -74, 22, 27, p.mid), circle(-8, -84, 3.4, p.light), circle(8, -84, 3.4, p.light),
              ellipse(0, 2, 56, 64, p.near), ellipse(0, 2, 47, 55, p.accent), *plates]
    notes = [item for x, y, turn in ((66, 96, -12), (272, 128, 14), (78, 250, 8))
             for item in placed([ellipse(0, 0, 9, 7, p.light), line([(8, 0), (8, -34)], p.light, 3),
                                 line([(8, -34), (22, -28)], p.light, 5)], x, y, turn)]
    bands = [water(40 + i * 74, mix(p.sky, p.far, 0.2 + 0.22 * i), 8, 84, 0.3 * i) for i in range(4)]
    return [*bands, *placed(turtle, 172, 176, -24, 1.12), *notes, water(318, p.near, 7, 70)]


def junk(p, r):
    sail = [path("M0 0Q34 -58 -6 -118Q58 -96 66 -10Z", p.accent)]
    battens = [line([(4 - i * 0.5, -20 - i * 26), (62 - i * 10, -24 - i * 22)], mix(p.accent, p.near, 0.4), 2.2)
               for i in range(4)]
    boat = [line([(-2, 0), (-2, -132)], p.near, 4), *sail, *battens, *placed(sail, -64, 2, -6, 0.66),
            path("M-98 -10Q-60 6 60 4L92 -18Q88 26 56 32H-58Q-88 28 -98 -10Z", p.near)]
    return [*halo(p, 168, 120, 62, 2, 36), hills(r, 168, 50, p.far, 3), hills(r, 212, 26, mix(p.far, p.mid, 0.5)),
            water(256, p.mid, 4, 64), *placed(boat, 166, 248), water(280, mix(p.mid, p.near, 0.6), 5, 52),
            *bamboo(20, 15, p.near, p.mid), *bamboo(46, 9, mix(p.near, p.mid, 0.35), p.far),
            *[leaf(34 + i * 6, 42 + i * 34, 46, 22 + 14 * (i % 3), p.near) for i in range(5)],
            water(312, p.near, 5, 66)]


def lighthouse(p, r):
    stripes = [polygon([(-20 - i * 3.4, -96 + i * 34), (20 + i * 3.4, -96 + i * 34), (21.8 + i * 3.4, -78 + i * 34),
                        (-21.8 - i * 3.4, -78 + i * 34)], p.accent) for i in range(4)]
    tower = [polygon([(-20, -100), (20, -100), (36, 60), (-36, 60)], p.light), *stripes,
             rect(-27, -108, 54, 9, p.near, 2), rect(-15, -134, 30, 26, p.glow), rect(-3, -134, 6, 26, p.near),
             path("M-20 -133Q0 -162 20 -133Z", p.near)]
    beam = mix(p.glow, p.light, 0.55)
    swallow = [path("M0 0Q-20 -26 -46 -26Q-24 -12 -14 4L-34 22L-4 14L14 30L12 8Q34 10 44 -8Q18 -10 0 0Z", p.near)]
    return [*stars(p, r, 40, 120), polygon([(112, 92), (SIDE + 10, 22), (SIDE + 10, 118)], mix(p.sky, beam, 0.55)),
            hills(r, 220, 16, p.far), water(246, p.mid, 5, 60),
            path(f"M-8 {DEEP}V262Q30 228 112 232Q196 238 236 300V{DEEP}Z", p.near), *placed(tower, 112, 202),
            *placed(swallow, 246, 150, -8), water(300, p.near, 6, 66)]


def voyage(p, r):
    boat = [polygon([(-26, 0), (26, 0), (18, 14), (-18, 14)], p.accent), line([(0, 0), (0, -58)], p.light, 3),
            polygon([(4, -56), (4, -8), (32, -8)], p.light),
            polygon([(-4, -46), (-4, -8), (-22, -8)], mix(p.light, p.far, .3))]
    light = [rect(-3, -26, 6, 26, p.light), circle(0, -30, 5, p.accent)]
    return [*stars(p, r, 90, 120), *halo(p, 272, 66, 20, 2, 26), *placed(light, 54, 140), hills(r, 132, 10, p.far, 5),
            water(146, p.far, 3, 42), water(178, mix(p.far, p.mid, 0.5), 5, 56, 0.3),
            water(190, mix(p.far, p.mid, 0.25), 3, 38), water(214, p.mid, 7, 72, 0.6),
            *placed(boat, 186, 252, -5, 1.35), water(258, mix(p.mid, p.near, 0.55), 9, 92, 0.2),
            water(308, p.near, 8, 104, 0.7)]


def paper_sailing(p, r):
    drops = rain(r, 46, mix(p.sky, p.far, 0.9))
    lane = [polygon([(-10, -120), (92, -120), (92, 190), (-10, 226)], mix(p.far, p.mid, 0.2)),
            polygon([(346, -120), (252, -120), (252, 184), (346, 226)], mix(p.far, p.mid, 0.35)),
            rect(24, 60, 34, 44, p.light, 3), rect(276, 96, 36, 44, p.light, 3), rect(38, 60, 4, 44, p.mid),
            rect(292, 96, 4, 44, p.mid)]
    circles = [ellipse(x, y, w, w * 0.28, mix(p.mid, p.far, 0.6))
               for x, y, w in ((78, 262, 26), (276, 276, 34), (240, 230, 18))]
    return [*drops[:20], *lane, water(208, p.mid, 4, 60), *circles,
            *placed(paper_boat(0, 0, 1.8, p.light, p.accent), 168, 228, -4),
            water(270, mix(p.mid, p.near, 0.5), 6, 76, 0.4), *drops[20:], water(306, p.near, 6, 80)]


def river(p, r):
    banks = path(f"M196 178C150 196 96 204 122 226C150 250 262 246 236 290C214 326 60 330 40 {DEEP}" f"H300"
                 f"C320 380 340 330 326 288C310 244 186 236 178 218C172 202 210 190 220 178" f"Z",
                 mix(p.glow, p.light, 0.25))
    guardian = [path("M-22 0Q-24 -52 0 -60Q24 -52 22 0Z", p.near), circle(0, -66, 12, p.near),
                path("M-22 -70H22L0 -88Z", p.accent), line([(26, 6), (34, -92)], p.near, 4),
                *lantern(34, -76, 0.5, p.accent, p.near, 4)]
    trees = [item for i in range(5) for item in tree(18 + i * 76 + r.uniform(-10, 10), 200 + (i % 2) * 16, 0.74,
                                                     mix(p.far, p.mid, 0.3 + 0.5 * (i % 2)), p.near)]
    return [*stars(p, r, 50), *halo(p, 206, 88, 32), hills(r, 142, 40, p.far), hills(r, 178, 18, p.mid), *trees,
            banks, *placed(guardian, 92, 302, scale=1.05),
            path(f"M-8 {DEEP}V318Q90 288 170 322T346 316V{DEEP}Z", p.near)]


def oars(p, r):
    boat = path("M-30 0C-30 -80 -10 -122 0 -134C10 -122 30 -80 30 0C30 62 14 92 0 104C-14 92 -30 62 -30 0Z", p.accent)
    inside = path("M-19 0C-19 -64 -8 -92 0 -102C8 -92 19 -64 19 0C19 44 10 66 0 76C-10 66 -19 44 -19 0Z", p.near)
    rowers = [circle(0, y, 13, colour) for y, colour in ((-40, p.light), (20, mix(p.light, p.accent, 0.5)))]
    blades = [item for y, side in ((-40, 1), (20, -1))
              for item in placed([line([(0, 0), (88, -24)], p.light, 4), ellipse(98, -27, 17, 7, p.light)], 0, y,
                                 flip=side < 0)]
    wake = [ring(168 + side * 100, y, radius, mix(p.mid, p.light, 0.35), 2) for side, y in ((1, 96), (-1, 164))
            for radius in (16, 28)]
    bands = [water(-104 + i * 52, mix(p.far, p.mid, (i % 2) * 0.35 + i * 0.06), 6, 84, 0.25 * i) for i in range(9)]
    return [*bands, *wake, *placed([boat, inside, rect(-26, -20, 52, 7, p.accent), rect(-24, 40, 48, 7, p.accent),
                                    *rowers, *blades], 168, 168), water(322, p.near, 6, 76)]


def dragon_boat(p, r):
    def racer(colour, trim, crew):
        body = [path("M-150 -6Q-90 14 90 10L128 -6Q120 30 84 34H-96Q-136 28 -150 -6Z", colour),
                pen("M-140 6Q0 26 116 10", trim, 3),
                path("M104 2C116 -24 112 -52 132 -60C152 -64 166 -52 168 -40L146 -36L160 -28L140 -20C136 0 130 10 "
                     "120 16Z", colour), polygon([(128, -58), (112, -80), (136, -64)], trim),
                polygon([(120, -44), (98, -56), (120, -34)], trim), circle(143, -50, 3.6, p.light)]
        for i in range(5):
            x = -108 + i * 40
            body += [circle(x, -26, 10, crew), path(f"M{x - 11} 4Q{x - 8} -18 {x} -18Q{x + 12} -16 {x + 12} 4Z",
                                                    crew), line([(x + 6, -12), (x + 24, 40)], p.light, 3)]
        return body
    return [*halo(p, 238, 70, 40, 2, 32), hills(r, 128, 50, p.far, 3), water(182, mix(p.far, p.mid, 0.5), 4, 56),
            *placed(racer(mix(p.mid, p.near, 0.4), p.light, p.mid), 186, 208, scale=0.5),
            water(222, p.mid, 5, 66, 0.4), *placed(racer(p.accent, p.light, p.near), 158, 266, scale=0.72),
            water(294, p.near, 6, 70)]


def koi(p, r):
    def fish(body, patch):
        return [path("M0 -62C26 -48 28 6 6 52C16 74 26 82 24 98C10 92 4 84 0 74C-4 84 -10 92 -24 98C-26 82 -16 74 "
                     "-6 52" "C-28 6 -26 -48 0 -62Z", body),
                path("M-17 -28C-8 -16 12 -20 19 -30C14 -50 -10 -56 " "-17 -28Z", patch),
                path("M-16 12C0 6 8 18 2 34" "C-4 40 -12 34 -16 12" "Z", patch),
                path("M20 -22Q44 -14 46 8Q28 2 18 -4Z", body), path("M-20 -22Q-44 -14 -46 8Q-28 2 -18 -4Z", body),
                circle(-8, -48, 2.6, p.near), circle(8, -48, 2.6, p.near)]
    pads = [item for x, y, size, turn in ((48, 60, 40, 20), (292, 250, 46, 200), (66, 288, 30, 100))
            for item in placed([path(f"M0 0L{size} {-size * 0.3}A{size} {size} 0 1 1 {size * 0.8} {-size * 0.64}Z",
                                     mix(p.mid, p.near, 0.3))], x, y, turn)]
    moon = [circle(226, 74, 44, mix(p.far, p.light, 0.75)), rect(176, 66, 100, 3, p.far),
            rect(176, 84, 100, 3, p.far)]
    ripples = [ring(168, 168, 60 + i * 44, mix(p.far, p.light, 0.28), 1.6) for i in range(4)]
    return [rect(-10, -140, 360, 620, p.far), *moon, *ripples, *pads,
            *placed(fish(p.light, p.accent), 118, 152, 28, 1.08),
            *placed(fish(p.accent, p.light), 222, 206, 206, 1.02),
            *placed([circle(0, 0, 9, p.light), *[ellipse(math.cos(a) * 12, math.sin(a) * 12, 8, 8, p.glow)
                                                 for a in (0, 1.26, 2.5, 3.77, 5.03)], circle(0, 0, 6, p.accent)],
                    286, 246), water(326, p.near, 4, 90)]


def anglers(p, r):
    signs = [item for x, y, w, h, colour in ((10, 20, 52, 120, p.accent), (74, 60, 44, 84, p.light),
                                             (232, 8, 58, 110, p.accent), (296, 50, 46, 98, p.light))
             for item in (rect(x, y, w, h, p.near, 4),
                          f'<rect x="{x + 5}" y="{y + 5}" width="{w - 10}" height="{h - 10}" rx="3" '
                          f'fill="none" stroke="{colour}" stroke-width="3"/>',
                          *[line([(x + 14, y + 22 + i * 22), (x + w - 14, y + 22 + i * 22)], colour, 4)
                            for i in range(int((h - 24) / 22))])]
    fish = [path("M-30 0C-14 -22 14 -20 26 -2L44 -16V16L26 2C14 20 -14 22 -30 0Z", p.light),
            circle(-16, -3, 3.4, p.near)]
    glow = [item for x, y, size, side in ((88, 262, 0.9, False), (232, 290, 1.1, True), (180, 236, 0.6, False))
            for item in placed(fish, x, y, scale=size, flip=side)]
    angler = [path("M-20 0Q-22 -34 0 -38Q20 -34 20 0Z", p.glow), circle(0, -50, 15, p.glow),
              rect(-22, -62, 44, 6, p.accent, 3), pen("M14 -20Q60 -74 104 -60V40", p.light, 2.6),
              circle(104, 44, 5, p.accent)]
    return [*signs, rect(-10, 150, 356, 60, p.far), rect(-10, 146, 356, 10, p.near),
            *placed(angler, 132, 148, scale=1.1), water(204, p.mid, 4, 50),
            *[line([(x, 214 + i * 15), (x + 30 - i * 4, 214 + i * 15)], mix(c, p.mid, 0.45), 4)
              for x, c in ((20, p.accent), (78, p.light), (240, p.accent), (298, p.light)) for i in range(5)], *glow,
            water(318, p.near, 5, 60)]


def whale(p, r):
    body = path("M-118 14C-120 -44 -40 -72 30 -52C72 -40 90 -6 112 -20C122 -30 114 -52 130 -62C138 -46 150 -44 "
                "162 -50" "C160 -22 146 -2 124 10C100 58 10 74 -58 58C-94 50 -116 36 -118 14Z", p.near)
    belly = path("M-116 22C-60 30 -10 34 30 62C-20 72 -104 64 -116 22Z", mix(p.near, p.light, 0.75))
    grooves = [pen(f"M{-96 + i * 24} {30 + i * 4}Q{-80 + i * 24} {44 + i * 2} {-66 + i * 24} {56}", p.mid, 1.8)
               for i in range(4)]
    books = [rect(-34 + i * 18, -40 + (i % 2) * 6, 15, 40 - (i % 2) * 6, colour, 1.5)
             for i, colour in enumerate((p.accent, p.light, p.mid, p.accent))]
    return [*halo(p, 84, 66, 28, 2, 30), *bird(210, 60, 0.9, p.near), *bird(244, 82, 0.6, p.near),
            water(104, mix(p.far, p.sky, 0.35), 6, 68), water(158, p.far, 6, 84, 0.4),
            *placed([body, belly, *grooves, circle(-78, 4, 4.4, p.light)], 152, 206, -4),
            *placed(books, 164, 160, -2, 0.95), water(246, mix(p.far, p.mid, 0.75), 8, 92, 0.15),
            water(292, p.near, 8, 78, 0.5)]


def causeway(p, r):
    road = polygon([(160, 170), (176, 170), (SIDE - 20, DEEP), (20, DEEP)], mix(p.glow, p.accent, 0.12))
    stones = []
    for i in range(11):
        share = (i / 10) ** 1.7
        y, half = 176 + share * 160, 5 + share * 52
        x = 168 + math.sin(i * 1.9) * half * 0.75
        stones.append(polygon([(x - half * 0.5, y), (x - half * 0.1, y - half * 0.3),
                               (x + half * 0.45, y - half * 0.1), (x + half * 0.4, y + half * 0.2),
                               (x - half * 0.3, y + half * 0.25)], p.mid if i % 3 else p.accent))
    posts = [item for i in range(4) for side in (-1, 1)
             for item in placed([rect(-2, -64, 4, 64, p.near), circle(0, -70, 9, p.light)],
                                168 + side * (24 + 30 * i), 190 + 36 * i, scale=0.4 + 0.26 * i)]
    return [*halo(p, 168, 122, 50, 3, 34), hills(r, 160, 12, p.far, 5),
            rect(-10, 170, 356, 320, mix(p.far, p.mid, 0.3)),
            *[line([(r.uniform(-10, 100), 186 + i * 16), (r.uniform(20, 120), 186 + i * 16)], p.far, 3)
              for i in range(7)], *[line([(r.uniform(220, 330), 186 + i * 16), (r.uniform(240, 340), 186 + i * 16)],
                                         p.far, 3) for i in range(7)], road, *stones, *posts,
            polygon([(-10, 352), (346, 330), (346, DEEP), (-10, DEEP)], p.near)]


def umbrella_lane(p, r):
    walls = [polygon([(-10, -130), (108, -130), (108, 214), (-10, 320)], mix(p.mid, p.near, 0.25)),
             polygon([(346, -130), (232, -130), (232, 214), (346, 320)], mix(p.mid, p.near, 0.5))]
    tiles = [polygon([(-10, 20 + i * 12), (112 - i * 2, 60 + i * 10), (112 - i * 2, 66 + i * 10), (-10, 26 + i * 12)],
                     p.near) for i in range(3)]
    lamp = [*lantern(92, 128, 0.72, p.light, p.near, 14), *lantern(248, 158, 0.56, p.light, p.near, 12)]
    paving = polygon([(108, 214), (232, 214), (346, 320), (346, DEEP), (-10, DEEP), (-10, 320)],
                     mix(p.far, p.light, 0.12))
    walker = [path("M-26 96Q-30 30 0 16Q30 30 26 96Z", p.near), line([(0, -58), (0, 60)], p.near, 3.4),
              path("M-80 4Q-70 -40 0 -66Q70 -40 80 4Q52 -8 40 4Q20 -8 0 4Q-20 -8 -40 4Q-52 -8 -80 4Z", p.accent),
              *[pen(f"M0 -64Q{x * 0.7} -34 {x} 2", mix(p.accent, p.near, 0.4), 2) for x in (-40, 0, 40)]]
    drops = rain(r, 60, mix(p.sky, p.light, 0.55), 360)
    return [*drops[:20], *walls, *tiles, paving, *lamp, ellipse(170, 320, 60, 11, mix(p.far, p.near, 0.5)),
            *placed(walker, 168, 222), *drops[20:], path(f"M-10 {DEEP}V334Q168 322 346 334V{DEEP}Z", p.near)]


def cloud_ladder(p, r):
    rungs = [line([(-16, -i * 22), (16, -i * 22)], p.near, 4) for i in range(9)]
    ladder = [line([(-18, 10), (-14, -196)], p.near, 5), line([(18, 10), (14, -196)], p.near, 5), *rungs]
    mender = [path("M-15 0Q-16 -34 0 -38Q16 -34 15 0Z", p.accent), circle(0, -48, 12, p.near),
              line([(8, -26), (38, -52)], p.near, 5), path("M-20 -54H20L0 -70Z", p.light)]
    stitches = [line([(212 + i * 15, 74 + i % 2 * 9), (222 + i * 15, 66 + i % 2 * 9)], p.accent, 3) for i in range(5)]
    drops = [path(f"M{x} {y}q-8 12 0 18q8 -6 0 -18z", p.mid)
             for x, y in ((196, 136), (226, 156), (262, 134), (286, 166))]
    roofs = [path(f"M{x - 56} {y}Q{x} {y - 18} {x + 56} {y}L{x + 40} {y - 30}Q{x} {y - 44} {x - 40} {y - 30}Z",
                  p.near) for x, y in ((60, 304), (270, 296))]
    return [*cloud(84, 60, 0.9, p.glow), *cloud(234, 82, 1.9, p.light), *stitches, *drops,
            *cloud(48, 176, 0.7, p.glow), hills(r, 226, 50, p.far, 3), *placed(ladder, 150, 306, 9),
            *placed(mender, 166, 178, 6), hills(r, 274, 22, p.mid), *roofs, rect(30, 296, 60, 40, p.mid),
            rect(240, 290, 60, 40, p.mid), hills(r, 312, 14, p.near)]


def wave_guitar(p, r):
    hole = [circle(0, 0, 60, p.near), ring(0, 0, 70, p.accent, 5), ring(0, 0, 80, p.light, 2.4)]
    shape = [path("M0 -128C66 -128 92 -86 80 -40C72 -12 96 10 112 54C126 112 70 150 0 150C-70 150 -126 112 -112 54"
                  "C-96 10 -72 -12 " "-80 -40C-92 -86 -66 -128 0 -128Z", p.mid)]
    swell = [f'<clipPath id="hole"><circle r="60"/></clipPath><g clip-path="url(#hole)">',
             *halo(p, 14, -20, 18, 2, 20), *placed([water(0, p.far, 5, 40), water(16, p.mid, 5, 46, 0.4),
                                                    water(34, p.near, 5, 40)], -168, 6), "</g>"]
    strings = [line([(-20 + i * 8, -330), (-20 + i * 8, 136)], mix(p.light, p.mid, 0.2), 1.4) for i in range(6)]
    body = [*shape, *hole, *swell, rect(-26, -340, 52, 224, p.near),
            *[rect(-26, -330 + i * 34, 52, 2.4, p.far) for i in range(6)], *strings,
            rect(-44, 116, 88, 13, p.near, 4)]
    return [rect(-10, -140, 356, 640, p.sky), *[water(40 + i * 56, mix(p.sky, p.far, 0.16 * (i + 1)), 9, 110, 0.2 * i)
                                                for i in range(5)], *placed(body, 168, 186, 14, 0.98),
            water(328, p.near, 6, 80)]
