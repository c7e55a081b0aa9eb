"""The game systems themselves, each on a poster without words. These scenes fill the whole 336 x 448."""
import math

from .elements import bamboo, halo, leaf, stars, water
from .lettering import text
from .svg import circle, ellipse, line, mix, path, pen, placed, polygon, rect, ring

MIDDLE = 168


def cross(x, y, arm, fill):
    return [rect(x - arm, y - arm / 3, 2 * arm, arm * 2 / 3, fill, arm / 6),
            rect(x - arm / 3, y - arm, arm * 2 / 3, 2 * arm, fill, arm / 6)]


def framed(left, top, width, height, radius, name, shapes):
    """The shapes, seen through a rounded screen."""
    pane = f'<rect x="{left}" y="{top}" width="{width}" height="{height}" rx="{radius}"/>'
    return [f'<clipPath id="{name}">{pane}</clipPath><g clip-path="url(#{name})">', *shapes, "</g>"]


def comet_pocket(p, r):
    comet = [polygon([(160, 176), (150, 162), (250, 84), (262, 96)], p.glow),
             polygon([(158, 174), (152, 166), (236, 98), (242, 104)], p.light), circle(146, 178, 17, p.accent),
             circle(140, 174, 4, p.light)]
    screen = [rect(92, 96, 152, 132, p.near), *stars(p, r, 120, 230), *comet,
              path("M92 228V212Q168 190 244 214V228Z", p.far)]
    body = [rect(70, 62, 196, 330, mix(p.near, p.sky, 0.3), 30), rect(66, 56, 204, 330, p.light, 30),
            rect(80, 76, 176, 172, p.mid, 16), *framed(92, 90, 152, 140, 6, "screen", screen),
            circle(MIDDLE, 239, 3.5, p.accent)]
    buttons = [circle(x, y, 14, p.accent) for x, y in ((186, 322), (214, 302), (242, 322))]
    wheel = [circle(120, 306, 36, p.mid), circle(120, 306, 27, p.near), *cross(120, 306, 15, p.light)]
    controls = [*wheel, *buttons, *[circle(148 + 10 * i, 360, 2.6, p.far) for i in range(5)]]
    return [*halo(p, MIDDLE, 220, 20, 3, 78)[:-1], *stars(p, r, 60, 440), *body, *controls]


def hearth_16(p, r):
    tongues = (
        ("M168 60C232 130 236 176 214 214C204 236 188 246 168 246C148 246 132 236 122 214C100 176 104 130 168 60Z", 0),
        ("M168 118C206 164 206 196 192 218C186 232 178 238 168 238C158 238 150 232 144 218C130 196 130 164 168 118Z", 0.5),
        ("M168 172C186 196 184 214 178 226C175 234 172 236 168 236C164 236 161 234 158 226C152 214 150 196 168 172Z", 1),
    )
    flames = [path(outline, mix(p.accent, p.light, share)) for outline, share in tongues]
    console = [polygon([(66, 252), (270, 252), (300, 300), (36, 300)], p.light),
               rect(36, 300, 264, 50, mix(p.light, p.mid, 0.3), 8), rect(108, 222, 120, 40, p.near, 6),
               rect(116, 214, 104, 44, p.mid, 6), rect(130, 224, 76, 10, p.light, 3),
               rect(64, 318, 54, 14, p.near, 7), rect(218, 318, 54, 14, p.near, 7), circle(MIDDLE, 325, 7, p.accent)]
    pad = [pen("M168 350Q168 372 150 378", p.near, 5), rect(94, 372, 148, 56, p.near, 28),
           *cross(128, 400, 14, p.light), circle(196, 406, 8, p.accent), circle(216, 394, 8, p.light)]
    sparks = [circle(r.uniform(70, 266), r.uniform(24, 190), r.uniform(1.4, 3.2), p.light) for _ in range(26)]
    return [*halo(p, MIDDLE, 190, 20, 3, 60)[:-1], *sparks, *flames, *console, *pad]


def starlane_arcade(p, r):
    lane = [line([(MIDDLE, 150), (MIDDLE + dx, 250)], p.accent, 2.4) for dx in (-120, -70, -30, 30, 70, 120)]
    lane += [line([(80, y), (256, y)], p.accent, 2) for y in (178, 190, 206, 226)]
    ship = [polygon([(0, -22), (14, 14), (0, 6), (-14, 14)], p.light)]
    screen = [rect(88, 104, 160, 132, p.near), *stars(p, r, 80, 170), circle(MIDDLE, 168, 30, p.glow),
              rect(88, 170, 160, 70, p.near), *lane, *placed(ship, MIDDLE, 214)]
    cabinet = [polygon([(72, 36), (264, 36), (276, 260), (300, 300), (290, 448), (46, 448), (36, 300), (60, 260)],
                       p.far), polygon([(84, 92), (252, 92), (258, 250), (78, 250)], p.near),
               *framed(92, 102, 152, 136, 8, "screen", screen), rect(76, 44, 184, 40, p.accent, 6),
               *[circle(94 + i * 21, 64, 5, p.light) for i in range(8)],
               polygon([(60, 262), (276, 262), (298, 302), (38, 302)], p.mid),
               line([(112, 286), (106, 256)], p.light, 6), circle(105, 250, 12, p.accent),
               circle(196, 280, 10, p.light), circle(224, 280, 10, p.accent), circle(250, 282, 10, p.light),
               rect(62, 316, 212, 132, p.mid, 6), rect(138, 340, 26, 44, p.near, 4),
               rect(172, 340, 26, 44, p.near, 4), rect(149, 350, 4, 18, p.accent, 2),
               rect(183, 350, 4, 18, p.accent, 2), rect(62, 412, 212, 5, p.accent)]
    rays = [polygon([(MIDDLE, 200), (MIDDLE + 460 * math.cos(a), 200 + 460 * math.sin(a)),
                     (MIDDLE + 460 * math.cos(a + 0.16), 200 + 460 * math.sin(a + 0.16))], mix(p.sky, p.glow, 0.55))
            for a in [i * math.pi / 9 for i in range(18)]]
    return [*rays, *cabinet]


def tidewheel_disc(p, r):
    shine = [polygon([(MIDDLE, 176), (MIDDLE + 150 * math.cos(a), 176 + 150 * math.sin(a)),
                      (MIDDLE + 150 * math.cos(a + 0.3), 176 + 150 * math.sin(a + 0.3))], mix(p.light, p.far, 0.35))
             for a in (-0.9, -0.2, 2.24, 2.94)]
    disc = [circle(MIDDLE, 176, 128, p.light), *framed(40, 48, 256, 256, 128, "disc", shine),
            ring(MIDDLE, 176, 122, mix(p.light, p.far, 0.5), 2), ring(MIDDLE, 176, 56, mix(p.light, p.far, 0.6), 2),
            circle(MIDDLE, 176, 46, p.accent), circle(MIDDLE, 176, 15, p.sky)]
    player = [rect(34, 300, 268, 92, p.near, 18), rect(34, 300, 268, 40, mix(p.near, p.mid, 0.45), 18),
              rect(34, 322, 268, 18, mix(p.near, p.mid, 0.45)), rect(60, 306, 216, 8, p.near, 4),
              circle(72, 366, 10, p.accent), rect(98, 360, 74, 12, p.mid, 6),
              *[rect(232 + i * 17, 356, 9, 20, p.light, 3) for i in range(3)]]
    return [*[water(20 + i * 54, mix(p.sky, p.far, 0.1 + 0.14 * i), 9, 96, 0.27 * i) for i in range(5)], *disc,
            *player, water(380, mix(p.far, p.mid, 0.7), 8, 84, 0.3), water(414, p.near, 8, 98)]


def slate_computer(p, r):
    lines = [text(86, 122 + i * 27, words, 17, p.light if i else p.accent, "start", spacing=0.02)
             for i, words in enumerate(("SLATE 2.1", "> LOOK", "A GARDEN.", "> OPEN GATE", ">"))]
    screen = [rect(70, 90, 196, 150, p.near, 10), *lines, rect(104, 217, 11, 15, p.accent)]
    monitor = [rect(46, 62, 244, 206, p.light, 18), rect(60, 78, 216, 174, p.mid, 14), *screen,
               polygon([(128, 268), (208, 268), (222, 300), (114, 300)], mix(p.light, p.far, 0.5))]
    keys = [rect(54 + i * 20.5 + (k % 2) * 5, 326 + k * 19, 16, 14, p.accent if (i, k) == (10, 2) else p.light, 3)
            for k in range(4) for i in range(11) if (k, i) != (3, 0)]
    board = [polygon([(50, 300), (286, 300), (316, 410), (20, 410)], mix(p.light, p.far, 0.75)),
             rect(38, 314, 260, 92, p.mid, 10), *keys, rect(100, 383, 136, 14, p.light, 3)]
    return [*halo(p, 250, 70, 20, 2, 60)[:-1], rect(0, 340, 336, 120, p.far), *monitor, *board,
            rect(0, 424, 336, 30, p.near)]


def bamboo_flute(p, r):
    hills = [path("M84 214Q116 178 150 206T252 196V250H84Z", p.far),
             path("M84 232Q140 206 190 230T252 226V250H84Z", p.mid)]
    screen = [rect(84, 142, 168, 108, mix(p.sky, p.light, 0.3)), circle(214, 172, 17, p.accent), *hills,
              *bamboo(98, 7, p.near, p.mid), *bamboo(116, 5, p.mid, p.far),
              *[leaf(104, 168 + i * 15, 24, 14 + 16 * (i % 2), p.near) for i in range(4)]]
    body = [rect(16, 122, 304, 160, mix(p.near, p.mid, 0.25), 56), rect(16, 114, 304, 158, p.light, 56),
            rect(76, 132, 184, 122, p.near, 12), *framed(84, 140, 168, 106, 6, "screen", screen),
            *cross(46, 178, 19, p.near), circle(46, 226, 13, p.mid), circle(290, 160, 9, p.accent),
            circle(274, 178, 9, p.mid), circle(306, 178, 9, p.mid), circle(290, 196, 9, p.accent),
            circle(290, 230, 13, p.mid)]
    flute = [line([(54, 366), (282, 318)], p.near, 18),
             line([(54, 364), (282, 316)], mix(p.accent, p.light, 0.25), 13),
             *[ellipse(126 + i * 26, 349 - i * 5.5, 4.2, 3.4, p.near) for i in range(6)],
             line([(92, 351), (94, 361)], p.near, 3), line([(262, 316), (264, 326)], p.near, 3),
             pen("M282 318q20 14 12 40q-4 14 4 26", p.accent, 3), circle(298, 388, 6, p.accent)]
    canes = [*bamboo(-4, 18, mix(p.mid, p.far, 0.4), p.sky, 448, -60),
             *bamboo(316, 14, mix(p.mid, p.far, 0.2), p.sky, 448, -60)]
    return [*halo(p, MIDDLE, 150, 20, 3, 60)[:-1], *canes,
            *[leaf(14, 40 + i * 30, 58, 10 + 22 * (i % 2), p.mid) for i in range(3)],
            *[leaf(322, 330 + i * 34, 52, 170 - 20 * (i % 2), p.mid) for i in range(3)], *body, *flute]
