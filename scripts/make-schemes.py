#!/usr/bin/env python3
"""Writes data/all.col, the colour schemes that come with Pentalink.

Each scheme is chosen by two colours: the background (colour 2: windows, cells, the star) and
the button colour (colour 4: buttons and word tiles). The other colours are filled in the way
the program itself fills a table, so what the Options window previews equals what the main
window loads:
  colour 3 (menus)  = colour 2 lightened by 32 per component (above 256 becomes 254)
  colour 5          = colour 4 darkened by 32 (below 1 becomes 8)
  colours 0, 1, 6..12 as the View button derives them from colour 2 at contrast 100.
Every background, button and menu colour must keep the fixed text colour RGB(28, 28, 28)
readable: a contrast ratio of at least 4.5 : 1. The script refuses to write otherwise.

Usage: python3 scripts/make-schemes.py [output]   (default: data/all.col)
"""
import os
import sys

TEXT = (28, 28, 28)

# name, background (colour 2), buttons (colour 4), character
SCHEMES = [
    ("xp", (236, 233, 216), (214, 223, 247), "calm light: warm grey-beige with soft blue buttons"),
    ("ocean", (205, 228, 242), (150, 198, 230), "cool sea blues"),
    ("meadow", (220, 238, 204), (168, 212, 148), "fresh spring greens"),
    ("sand", (242, 228, 198), (222, 188, 138), "warm desert beige and ochre"),
    ("rose", (248, 224, 230), (230, 172, 190), "soft pink with dusty rose buttons"),
    ("slate", (178, 186, 196), (210, 216, 224), "sober mid-grey with pale steel buttons"),
    ("lavender", (230, 222, 246), (194, 178, 232), "gentle violet"),
    ("citrus", (252, 244, 190), (255, 196, 112), "bright lemon with orange buttons"),
    ("dusk", (132, 146, 178), (182, 194, 220), "deep evening blue, the darkest scheme"),
    ("terracotta", (214, 158, 128), (238, 204, 172), "earthy clay with cream buttons"),
    ("paper", (250, 250, 247), (226, 226, 222), "crisp near-white, minimal"),
]


def luminance(rgb):
    def channel(byte):
        c = byte / 255.0
        return c / 12.92 if c <= 0.04045 else ((c + 0.055) / 1.055) ** 2.4

    r, g, b = (channel(v) for v in rgb)
    return 0.2126 * r + 0.7152 * g + 0.0722 * b


def contrast(a, b):
    la, lb = luminance(a), luminance(b)
    return (max(la, lb) + 0.05) / (min(la, lb) + 0.05)


def lighten(rgb):
    out = []
    for v in rgb:
        v += 32
        out.append(254 if v > 256 else min(v, 255))
    return tuple(out)


def darken(rgb):
    return tuple(8 if v - 32 < 1 else v - 32 for v in rgb)


def shifted(rgb, d):
    return tuple(min(max(v + d, 1), 244) for v in rgb)


def table(background, buttons):
    return [
        (1, 1, 1),
        (240, 240, 240),
        background,
        lighten(background),
        buttons,
        darken(buttons),
        shifted(background, 128),
        shifted(background, 32),
        shifted(background, 64),
        (128, 0, 0),
        (255, 0, 0),
        (0, 128, 0),
        (0, 255, 0),
    ]


def main():
    root = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    output = sys.argv[1] if len(sys.argv) > 1 else os.path.join(root, "data", "all.col")
    lines = []
    for name, background, buttons, character in SCHEMES:
        colours = table(background, buttons)
        for role, index in (("background", 2), ("menu", 3), ("buttons", 4)):
            ratio = contrast(colours[index], TEXT)
            if ratio < 4.5:
                sys.exit(f"{name}: {role} contrast {ratio:.2f} is below 4.5")
        print(f"{name:11s} background {contrast(colours[2], TEXT):5.2f}  "
              f"buttons {contrast(colours[4], TEXT):5.2f}  {character}")
        lines.append(f"{name}.col")
        lines.extend(" %d; %d; %d" % c for c in colours)
    with open(output, "wb") as f:
        f.write("".join(line + "\r\n" for line in lines).encode("ascii"))


if __name__ == "__main__":
    main()
