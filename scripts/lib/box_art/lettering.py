"""Titles: as many lines as they need, as large as the place allows."""
from xml.sax.saxutils import escape

from .svg import number

# Widths of the font's Latin capitals in thousandths of its size, from narrow to wide; other characters are square.
WIDTHS = {"IJ'.,:!&-": 300, " ": 260, "EFLSTBPR0123456789": 570, "ACDGHKNOQUVXYZ": 680, "MW": 900}
LATIN = 640


def is_square(character):
    return ord(character) >= 0x2E80


def width_of(text, size, spacing=0.0):
    total = 0
    for character in text:
        plain = next((width for letters, width in WIDTHS.items() if character in letters), LATIN)
        total += 1000 if is_square(character) else plain
    return total * size / 1000 + spacing * size * len(text)


def wrapped(title, width, size, spacing):
    """The lines of a title; Latin breaks between words, the rest between characters, in even lines."""
    if " " not in title and is_square(title[-1]):
        count = max(1, -(-len(title) // max(1, int(width / (size * (1 + spacing))))))
        each = -(-len(title) // count)
        return [title[i:i + each] for i in range(0, len(title), each)]
    lines = filled(title, width, size, spacing)
    while width > size:  # as narrow as it gets without another line
        width -= size / 4
        narrower = filled(title, width, size, spacing)
        if len(narrower) > len(lines):
            break
        lines = narrower
    return lines


def filled(title, width, size, spacing):
    """The words of a title, as many on each line as there is room for."""
    lines = [""]
    for word in title.split():
        longer = f"{lines[-1]} {word}".strip()
        if width_of(longer, size, spacing) <= width or not lines[-1]:
            lines[-1] = longer
        else:
            lines.append(word)
    return lines


def fitted(title, width, height, largest=40, smallest=11, spacing=0.04):
    """(lines, size): the largest size at which the title fits the place."""
    for size in range(largest, smallest, -1):
        lines = wrapped(title, width, size, spacing)
        if all(width_of(line, size, spacing) <= width for line in lines) and len(lines) * size * 1.2 <= height:
            return lines, size
    return wrapped(title, width, smallest, spacing), smallest


def text(x, y, letters, size, colour, anchor="middle", spacing=0.04, weight=0.028):
    """One line. The font has a single weight; a stroke in the same colour makes the bold one."""
    return (f'<text x="{number(x)}" y="{number(y)}" font-size="{number(size)}" text-anchor="{anchor}" '
            f'letter-spacing="{number(spacing * size)}" fill="{colour}" stroke="{colour}" '
            f'stroke-width="{number(weight * size)}">{escape(letters)}</text>')


def title_block(title, x, top, width, height, colour, anchor="middle", largest=40, weight=0.028):
    """The title in a place, its lines centred in the height."""
    lines, size = fitted(title.upper(), width, height, largest)
    pitch = size * 1.2
    base = top + (height - pitch * len(lines)) / 2 + size * 0.98
    return [text(x, base + i * pitch, line, size, colour, anchor, weight=weight) for i, line in enumerate(lines)]


def title_column(title, x, top, height, colour, size=44):
    """The title downwards, one character below the other. @return the shapes and where they end."""
    pitch = min(size * 1.18, height / len(title))
    size = pitch / 1.18
    shapes = [text(x, top + size * 0.9 + i * pitch, letter, size, colour, spacing=0) for i,
              letter in enumerate(title)]
    return shapes, top + pitch * len(title)
