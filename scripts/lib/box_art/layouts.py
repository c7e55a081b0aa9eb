"""How a game system prints its posters: where the square scene stands on 336 x 448, and where the title."""
from .lettering import text, title_block, title_column
from .svg import circle, mix, placed, polygon, readable, rect, ring

WIDTH, HEIGHT = 336, 448


def title_below(title, p, scene):
    """The scene on top, its ground continued below the title."""
    return [rect(0, 0, WIDTH, HEIGHT, p.sky), *scene, rect(0, 340, WIDTH, 120, p.near),
            *title_block(title, 168, 342, 292, 88, p.light), rect(148, 431, 40, 3, p.accent, 1.5)]


def title_above(title, p, scene):
    """The title in the sky, between two fine lines."""
    ink = readable(mix(p.sky, p.glow, 0.3), p.light, p.near)
    return [rect(0, 0, WIDTH, HEIGHT, p.sky), *placed(scene, 0, 112), rect(0, 0, WIDTH, 106, p.sky),
            rect(24, 20, 288, 2, ink), rect(24, 98, 288, 2, ink), *title_block(title, 168, 24, 284, 72, ink)]


def pocket_sleeve(title, p, scene):
    """A cartridge's label: the scene in a rounded window, the title on a coloured card below."""
    card = mix(p.light, p.sky, 0.12)
    return [rect(0, 0, WIDTH, HEIGHT, card),
            '<clipPath id="window"><rect x="18" y="18" width="300" height="300" rx="26"/></clipPath>',
            '<g clip-path="url(#window)">', rect(0, 0, WIDTH, WIDTH, p.sky), *placed(scene, 18, 18, scale=300 / 336),
            "</g>", *title_block(title, 168, 326, 296, 84, p.near), *[circle(144 + 24 * i, 424, 5, colour)
                                                                      for i, colour in enumerate((p.far, p.accent,
                                                                                                  p.near))]]


def arcade_flyer(title, p, scene):
    """Slanting stripes and a slanting title."""
    ink = readable(p.near, p.light, p.sky)
    return [rect(0, 0, WIDTH, HEIGHT, p.sky), *placed(scene, 0, 18),
            polygon([(0, 354), (336, 314), (336, 448), (0, 448)], p.near),
            polygon([(0, 350), (336, 310), (336, 318), (0, 358)], p.accent),
            polygon([(0, 364), (336, 324), (336, 327), (0, 367)], p.light),
            *placed(title_block(title, 0, -46, 284, 86, ink, largest=46), 168, 392, -6.8)]


def disc_sleeve(title, p, scene):
    """The scene printed on a disc, the title centred below."""
    ground = mix(p.near, p.mid, 0.18)
    return [rect(0, 0, WIDTH, HEIGHT, ground), '<clipPath id="disc"><circle cx="168" cy="172" r="138"/></clipPath>',
            circle(168, 172, 148, p.light), '<g clip-path="url(#disc)">', rect(0, 0, WIDTH, WIDTH, p.sky),
            *placed(scene, 22, 26, scale=292 / 336), "</g>", ring(168, 172, 143, ground, 2),
            *title_block(title, 168, 332, 292, 92, p.light, largest=36)]


def manual_cover(title, p, scene):
    """A manual: title top left on paper, the scene in a plain frame, a margin of punched dots."""
    paper = "#f1eadb"
    return [rect(0, 0, WIDTH, HEIGHT, paper), *[circle(17, 26 + 36 * i, 4.5, mix(paper, p.near, 0.22))
                                                for i in range(12)], rect(42, 26, 44, 6, p.accent),
            *title_block(title, 42, 36, 268, 84, p.near, "start", 36),
            '<clipPath id="frame"><rect x="42" y="130" width="272" height="290"/></clipPath>',
            '<g clip-path="url(#frame)">', rect(42, 130, 272, 300, p.sky), *placed(scene, 42, 136, scale=272 / 336),
            "</g>", f'<rect x="42" y="130" width="272" height="290" fill="none" stroke="{p.near}" stroke-width="3"/>']


def hanging_scroll(title, p, scene):
    """The title down a strip of paper at the right, with a seal below it."""
    paper = mix(p.light, p.sky, 0.15)
    column, end = title_column(title, 292, 22, 344, p.near, 46)
    ink = readable(p.accent, p.light, p.near)
    seal = [rect(277, end + 8, 30, 30, p.accent, 4), text(292, end + 31.5, title[0], 20, ink, spacing=0)]
    return [rect(0, 0, WIDTH, HEIGHT, p.sky), *placed(scene, -44, 112), rect(248, 0, 88, HEIGHT, paper),
            rect(248, 0, 3, HEIGHT, mix(paper, p.near, 0.35)), *column, *seal]


def without_words(title, p, scene):
    """A scene that fills the poster."""
    return [rect(0, 0, WIDTH, HEIGHT, p.sky), *scene]


SYSTEMS = {"": title_below, "Comet Pocket": pocket_sleeve, "Hearth 16": title_above, "Starlane Arcade": arcade_flyer,
           "Tidewheel Disc": disc_sleeve, "Slate Computer": manual_cover, "竹笛掌机": hanging_scroll, }


def poster(layout, title, palette, scene):
    """The whole picture as SVG, with the rounded corners of the rows that it stands in."""
    shapes = layout(title, palette, scene)
    sheet = (f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{HEIGHT}" '
             'font-family="WenQuanYi Micro Hei">')
    corners = f'<clipPath id="card"><rect width="{WIDTH}" height="{HEIGHT}" rx="14"/></clipPath>'
    # A fine rim, so that a poster with white margins has an edge on a white panel.
    rim = (f'<rect x="0.75" y="0.75" width="{WIDTH - 1.5}" height="{HEIGHT - 1.5}" rx="13.25" fill="none" '
           f'stroke="{palette.near}" stroke-opacity="0.22" stroke-width="1.5"/>')
    return sheet + corners + '<g clip-path="url(#card)">' + "".join(shapes) + "</g>" + rim + "</svg>\n"
