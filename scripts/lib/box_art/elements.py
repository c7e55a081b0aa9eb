"""What several scenes have in common: sky, hills, water, houses, boats. Scenes fill a square of 336, and reach down to
DEEP, so that a poster may continue the ground below it."""
import math

from .svg import circle, ellipse, line, mix, number, path, pen, placed, polygon, rect

SIDE = 336
DEEP = 470


def halo(p, x, y, radius, rings=3, reach=46):
    """Sun or moon with flat rings around it, the outer ones nearer to the sky."""
    shapes = [circle(x, y, radius + reach * i, mix(p.sky, p.glow, 0.72 - 0.2 * i)) for i in range(rings, 0, -1)]
    return shapes + [circle(x, y, radius, p.light)]


def crescent(x, y, radius, fill):
    """A moon that opens to the right."""
    near, far = number(radius), number(radius * 1.06)
    tip = radius * 0.8
    return path(f"M{number(x + tip * 0.62)} {number(y - tip)}A{near} {near} 0 1 0 {number(x + tip * 0.62)} " f""
                f"{number(y + tip)}A{far} {far} 0 0 1 {number(x + tip * 0.62)} {number(y - tip)}Z", fill)


def stars(p, r, count, bottom=170):
    shade = mix(p.sky, p.light, 0.75)
    return [circle(r.uniform(8, SIDE - 8), r.uniform(-90, bottom), r.choice([0.9, 1.2, 1.6, 2]), shade)
            for _ in range(count)]


def hills(r, top, height, fill, bumps=2.2):
    """A soft skyline with its crests at top, and everything below it."""
    phase, points = r.uniform(0, 6.3), []
    for x in range(-8, SIDE + 13, 8):
        turn = phase + x / SIDE * bumps * math.pi
        points.append((x, top + height * (0.5 - 0.38 * math.sin(turn) - 0.12 * math.sin(2.3 * turn + 1))))
    return polygon([(-8, DEEP), *points, (SIDE + 8, DEEP)], fill)


def peaks(r, top, height, fill, count=4):
    """A jagged skyline. @return the shape and its summits."""
    step, points, summits = (SIDE + 80) / count, [], []
    for i in range(count + 1):
        x = -40 + step * (i + r.uniform(-0.12, 0.12))
        summit = (x + step / 2, top + r.uniform(0, 0.35) * height)
        points += [(x, top + height * r.uniform(0.75, 1)), summit]
        summits.append(summit)
    return polygon([(-50, DEEP), *points, (SIDE + 50, DEEP)], fill), summits


def snow(summits, depth, fill):
    return [polygon([(x, y), (x + depth * 0.55, y + depth * 0.8), (x + depth * 0.2, y + depth * 0.62), (x, y + depth),
                     (x - depth * 0.2, y + depth * 0.62), (x - depth * 0.55, y + depth * 0.8)], fill)
            for x, y in summits]


def water(top, fill, swell=5, length=56, phase=0.0):
    """Waves of even length with their crests near top, and everything below them."""
    x, commands = -length * (1 + phase), ""
    while x < SIDE + length:
        commands += f"q{number(length / 4)} {-swell} {number(length / 2)} 0t{number(length / 2)} 0"
        x += length
    start = -length * (1 + phase)
    return path(f"M{number(start)} {number(top)}{commands}V{DEEP}H{number(start)}Z", fill)


def glints(r, x, top, bottom, colour, spread=40):
    """The light's path on water: strokes that grow wider towards the viewer."""
    shapes, y = [], top
    while y < bottom:
        share = (y - top) / (bottom - top)
        half = (6 + spread * share) * r.uniform(0.5, 1)
        middle = x + r.uniform(-0.4, 0.4) * half
        shapes.append(line([(middle - half, y), (middle + half, y)], colour, 2 + 1.6 * share))
        y += 9 + 5 * share
    return shapes


def rain(r, count, colour, bottom=330, slant=0.18, length=16):
    shapes = []
    for _ in range(count):
        x, y, size = r.uniform(-20, SIDE + 20), r.uniform(-110, bottom), length * r.uniform(0.6, 1.2)
        shapes.append(line([(x, y), (x - slant * size, y + size)], colour, 1.6))
    return shapes


def cloud(x, y, scale, fill):
    return placed([path("M-46 18a18 18 0 0 1 2-36 26 26 0 0 1 48-12 20 20 0 0 1 32 14 17 17 0 0 1 6 34z", fill)], x,
                  y, scale=scale)


def house(x, base, width, height, wall, roof, window, lit=True):
    """A gabled house that stands on base."""
    shapes = [rect(x, base - height, width, height + 60, wall),
              polygon([(x - 5, base - height), (x + width / 2, base - height - width * 0.6),
                       (x + width + 5, base - height)], roof)]
    if lit:
        shapes.append(rect(x + width * 0.32, base - height + height * 0.22, width * 0.36, width * 0.4, window, 2))
    return shapes


def paper_boat(x, y, scale, light, shade):
    return placed([polygon([(-24, 0), (24, 0), (0, -38)], mix(light, shade, 0.25)),
                   polygon([(0, -38), (24, 0), (0, 0)], light),
                   polygon([(-52, -14), (-14, 0), (-30, 26)], mix(shade, light, 0.45)),
                   polygon([(52, -14), (14, 0), (30, 26)], shade),
                   polygon([(-52, -14), (0, 2), (52, -14), (30, 26), (-30, 26)], shade),
                   polygon([(-52, -14), (0, 2), (-30, 26)], mix(shade, light, 0.4))], x, y, scale=scale)


def lantern(x, y, scale, body, dark, cord=30):
    """A paper lantern that hangs from a cord; (x, y) is its middle."""
    ribs = [pen(f"M{side * 9} -22q{side * 9} 22 0 44", mix(body, dark, 0.35), 1.6) for side in (-1, 1)]
    return placed([line([(0, -28 - cord), (0, -26)], dark, 2), ellipse(0, 0, 26, 23, body), *ribs,
                   rect(-12, -28, 24, 7, dark, 2), rect(-12, 21, 24, 7, dark, 2), line([(0, 28), (0, 44)], dark, 2.4),
                   circle(0, 46, 3, dark)], x, y, scale=scale)


def kite(x, y, scale, turn, light, dark, tail):
    """A diamond kite with a bowed tail; turn in degrees."""
    bows = [polygon([(-7, 74 + i * 22), (7, 82 + i * 22), (7, 74 + i * 22), (-7, 82 + i * 22)], tail)
            for i in range(3)]
    return placed([pen("M0 46C-14 66 14 84 0 104S-10 130 0 140", tail, 1.8), *bows,
                   polygon([(0, -46), (32, -8), (0, 46)], light), polygon([(0, -46), (-32, -8), (0, 46)], dark),
                   polygon([(0, -46), (32, -8), (0, -8)], mix(light, "#ffffff", 0.25))], x, y, turn, scale)


def bamboo(x, width, fill, joint, bottom=DEEP, top=-130):
    """A cane over the whole height with its joints."""
    shapes = [rect(x, top, width, bottom - top, fill)]
    step = width * 4.6
    y = top + step * (0.3 + (x * 0.618) % 0.6)
    while y < bottom:
        shapes += [rect(x - 1.5, y, width + 3, 3.4, joint, 1.5)]
        y += step
    return shapes


def leaf(x, y, length, turn, fill):
    half = number(length / 2)
    return "".join(placed([path(f"M0 0Q{half} {number(-length * 0.17)} {number(length)} 0"
                                f"Q{half} {number(length * 0.17)} 0 0Z", fill)], x, y, turn))


def bird(x, y, scale, colour):
    return placed([pen("M-14 -6Q-6 -10 0 0Q6 -10 14 -6", colour, 3)], x, y, scale=scale)


def envelope(x, y, scale, turn, light, shade, seal):
    return placed([rect(-32, -21, 64, 42, light, 3), polygon([(-32, 21), (0, -2), (32, 21)], mix(light, shade, 0.22)),
                   polygon([(-32, -20), (32, -20), (0, 6)], mix(light, shade, 0.4)), circle(0, 3, 6, seal)], x, y,
                  turn, scale)


def tree(x, base, scale, crown, trunk):
    return placed([rect(-4, -40, 8, 44, trunk), circle(0, -62, 30, crown), circle(-20, -46, 20, crown),
                   circle(20, -46, 20, crown)], x, base, scale=scale)


def fir(x, base, height, fill):
    half = height * 0.28
    return polygon([(x, base - height), (x + half * 0.62, base - height * 0.52),
                    (x + half * 0.34, base - height * 0.52), (x + half, base), (x - half, base),
                    (x - half * 0.34, base - height * 0.52), (x - half * 0.62, base - height * 0.52)], fill)


def gear(x, y, radius, teeth, fill, hole, turn=0):
    points = []
    for i in range(teeth * 4):
        angle = math.radians(turn) + 2 * math.pi * (i + 0.5) / (teeth * 4)
        reach = radius if i % 4 < 2 else radius * 0.8
        points.append((x + reach * math.cos(angle), y + reach * math.sin(angle)))
    return [polygon(points, fill), circle(x, y, radius * 0.32, hole)]
