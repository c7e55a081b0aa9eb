"""Shapes as SVG text. A drawing is a list of such texts; coordinates are pixels, y grows downwards."""
import math


def number(value):
    return f"{value:.2f}".rstrip("0").rstrip(".")


def mix(one, other, share):
    """The colour between two "#rrggbb": share 0 is one, 1 the other."""
    pairs = zip(bytes.fromhex(one[1:]), bytes.fromhex(other[1:]))
    return "#" + "".join(f"{round(a + (b - a) * share):02x}" for a, b in pairs)


def luminance(colour):
    linear = [c / 255 / 12.92 if c <= 10 else ((c / 255 + 0.055) / 1.055) ** 2.4 for c in bytes.fromhex(colour[1:])]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def contrast(one, other):
    light, dark = sorted((luminance(one), luminance(other)), reverse=True)
    return (light + 0.05) / (dark + 0.05)


def readable(below, *colours):
    """The colour that stands out most from what is below it."""
    return max(colours, key=lambda colour: contrast(colour, below))


def rect(x, y, width, height, fill, radius=0):
    rounded = f' rx="{number(radius)}"' if radius else ""
    return (f'<rect x="{number(x)}" y="{number(y)}" width="{number(width)}" height="{number(height)}"'
            f'{rounded} fill="{fill}"/>')


def circle(x, y, radius, fill):
    return f'<circle cx="{number(x)}" cy="{number(y)}" r="{number(radius)}" fill="{fill}"/>'


def ellipse(x, y, across, down, fill):
    return f'<ellipse cx="{number(x)}" cy="{number(y)}" rx="{number(across)}" ry="{number(down)}" fill="{fill}"/>'


def ring(x, y, radius, colour, width):
    return (f'<circle cx="{number(x)}" cy="{number(y)}" r="{number(radius)}" fill="none" stroke="{colour}" '
            f'stroke-width="{number(width)}"/>')


def path(commands, fill):
    return f'<path d="{commands}" fill="{fill}"/>'


def pen(commands, colour, width):
    """A line along a path, with round ends."""
    return (f'<path d="{commands}" fill="none" stroke="{colour}" stroke-width="{number(width)}" '
            'stroke-linecap="round" stroke-linejoin="round"/>')


def joined(points):
    return "M" + "L".join(f"{number(x)} {number(y)}" for x, y in points)


def polygon(points, fill):
    return path(joined(points) + "Z", fill)


def line(points, colour, width):
    return pen(joined(points), colour, width)


def flat_line(points, colour, width):
    """As line, with straight ends."""
    return f'<path d="{joined(points)}" fill="none" stroke="{colour}" stroke-width="{number(width)}"/>'


def placed(shapes, x=0, y=0, turn=0, scale=1, flip=False):
    """The shapes moved to (x, y), turned by degrees and scaled about their own origin."""
    across = -scale if flip else scale
    return [f'<g transform="translate({number(x)} {number(y)}) rotate({number(turn)}) '
            f'scale({number(across)} {number(scale)})">', *shapes, "</g>"]


def regular(x, y, radius, corners, turn=0):
    """The corners of a regular polygon; turn in degrees, 0 has the first corner on top."""
    angles = (math.radians(turn - 90 + 360 * i / corners) for i in range(corners))
    return [(x + radius * math.cos(a), y + radius * math.sin(a)) for a in angles]
