"""The colours of a poster: seven, from the sky down to the ground, and one that calls."""
import collections

# sky: the ground of the picture. glow: around sun or moon. far, mid, near: layers, the nearest the darkest.
# light: sun, moon, lamps and titles on the dark. accent: the one thing that the eye should find.
Palette = collections.namedtuple("Palette", "sky glow far mid near light accent")

PALETTES = {
    "night": Palette("#1c2747", "#3a5288", "#2a3f6b", "#1d2f54", "#111b33", "#f6e7b6", "#ee8a5b"),
    "indigo": Palette("#202a66", "#4d5cae", "#33409a", "#232c72", "#131842", "#f7ecd2", "#ff9f6b"),
    "dusk": Palette("#4a2f63", "#e2806e", "#7a4676", "#54315f", "#2a1a40", "#ffdca6", "#f6a04d"),
    "dawn": Palette("#f4cda6", "#ffe9c6", "#e6a183", "#bb686b", "#562d4b", "#fff4dc", "#d8432f"),
    "tea": Palette("#e8dabb", "#f6eed9", "#c8b083", "#937a4c", "#3d3222", "#fcf6e5", "#b3432b"),
    "jade": Palette("#cde2d2", "#eaf4e6", "#8abca2", "#4a8a74", "#17453f", "#fbf7e0", "#e0603a"),
    "moss": Palette("#22392f", "#56754a", "#365745", "#264337", "#11231d", "#f4edc0", "#f2b53f"),
    "ember": Palette("#3a1a20", "#a8352b", "#6a2730", "#471c27", "#1e1015", "#ffd58c", "#f4622d"),
    "ice": Palette("#cddff0", "#f0f7fc", "#a2c1db", "#6893b7", "#20426a", "#ffffff", "#e4543f"),
    "plum": Palette("#5a2653", "#b04f80", "#7f386c", "#51214d", "#2b1131", "#fae0c6", "#f6b44c"),
    "sand": Palette("#f3daa2", "#fdf0cf", "#e0ae68", "#c17d42", "#643926", "#fff7e0", "#25787f"),
    "sea": Palette("#bce0dc", "#e9f6ee", "#66b1b2", "#2b7f8f", "#104356", "#fef9e5", "#f0804a"),
    "rose": Palette("#f7d6ce", "#fef0e8", "#eaa5a0", "#c56a77", "#592641", "#fff7ef", "#2a6d72"),
    "steel": Palette("#d5dadb", "#f1f2ee", "#a8b1b6", "#6b7882", "#27313a", "#fcfbf4", "#e5532a"),
    "neon": Palette("#1b1140", "#51288c", "#352070", "#261552", "#120a2b", "#8ff0ea", "#ff4f9a"),
}
