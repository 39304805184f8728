#!/usr/bin/env python3
"""Writes the fonts of the gallery's pictures: every character is a box, drawn alike on every machine. Needs fontTools."""
import pathlib

from fontTools.fontBuilder import FontBuilder
from fontTools.pens.ttGlyphPen import TTGlyphPen

CHARACTERS = [*range(0x20, 0x180), *range(0x2010, 0x2040), *range(0x2190, 0x21A0), *range(0x2669, 0x2670)]


def box(right):
    pen = TTGlyphPen(None)
    pen.moveTo((60, 0))
    for corner in ((60, 700), (right, 700), (right, 0)):
        pen.lineTo(corner)
    pen.closePath()
    return pen.glyph()


for style, width in (("Regular", 500), ("Bold", 560)):
    font = FontBuilder(1000)
    font.setupGlyphOrder([".notdef", "space", "box"])
    font.setupCharacterMap({code: "space" if code in (0x20, 0xA0) else "box" for code in CHARACTERS})
    font.setupGlyf({".notdef": box(width - 60), "space": TTGlyphPen(None).glyph(), "box": box(width - 60)})
    font.setupHorizontalMetrics({name: (width, 60) for name in (".notdef", "space", "box")})
    font.setupHorizontalHeader(ascent=900, descent=-210)
    font.setupNameTable({"familyName": "Boxes", "styleName": style})
    font.setupOS2(sTypoAscender=900, sTypoDescender=-210, usWinAscent=900, usWinDescent=210, sxHeight=700,
                  sCapHeight=700, usWeightClass=700 if style == "Bold" else 400,
                  fsSelection=32 if style == "Bold" else 64)
    font.setupPost()
    font.font["head"].macStyle = 1 if style == "Bold" else 0
    font.font["head"].created = font.font["head"].modified = 0
    font.font.recalcTimestamp = False
    font.save(pathlib.Path(__file__).with_name("boxes-" + style.lower() + ".ttf"))
