#!/usr/bin/env python3
"""Works out the expected files of this folder by a second route.

The small sail of tests/export/small_sail.h is stated here again, in exact decimals, and every file
format is written down anew, line by line. Nothing is taken from the program: where the two
disagree, one of them is wrong. Run it from anywhere; it rewrites the files beside it.
"""

from decimal import ROUND_HALF_UP, Decimal as D
from pathlib import Path

HERE = Path(__file__).parent
PANELS = 3
NAME = "Essai \u00e9t\u00e9"
TITLE = "Brivane 2000"


# ---- The small sail ------------------------------------------------------------------------------

def lower(p, k):
    return D(100 * (k - 5)) + D(p) / 2, D(k - 5) / 8 * (-1) ** p


def upper(p, k):
    return D(100 * (k - 5)) - D("12.5") * p + D("0.125"), D(850) + D("1.375") * (k - 5) + p


def edge(p, k):
    if k < 5:
        return -D("3.125") * k - p, D("170.0625") * k
    if k <= 35:
        return D(100 * (k - 5)) + D("0.375"), D("830.5") + D("0.25") * p
    return D(3000) + D("2.625") * (k - 35), D(850) - D("170.125") * (k - 35)


def surface(i, j):
    return D(90 * j) + D("3.5") * i - 1, D(1200 * i) + D("2.25") * j, D("0.75") * j * (22 - j) - D("10.125") * i


CODE = [0, 0, 1, 2]
CLEW_X = D(3725)
PEAK_X, PEAK_Y = D("1710.5"), D(6150)
RAKE = D("0.0625")


# ---- Texts of numbers ----------------------------------------------------------------------------

def fixed(value, places):
    text = str(abs(value).quantize(D(1).scaleb(-places), rounding=ROUND_HALF_UP))
    return ("-" if value < 0 else "") + text


def plain(value):
    text = format(abs(D(value)).normalize(), "f")
    if text.startswith("0."):
        text = text[1:]
    return ("-" if value < 0 else " ") + text


def metres(value):
    return (" " if value < 0 else "  ") + fixed(value / 1000, 3) + " "


# ---- The stretches of an outline -----------------------------------------------------------------

def stretch(table, p, first, last):
    step = 1 if first <= last else -1
    return [table(p, k) for k in range(first, last + step, step)]


def guide(p):
    return stretch(edge, p, 5, 35)


def dxf(p):
    out = ["999", f"{TITLE} - panel {p + 1:02d} ", "  0", "SECTION", "  2", "ENTITIES"]
    outline = (stretch(lower, p, 5, 5) + stretch(edge, p, 0, 5) + stretch(upper, p, 5, 35)
               + stretch(edge, p, 35, 40) + stretch(lower, p, 35, 5))
    for colour, points in (("      5", guide(p)), ("      7", outline)):
        out += ["  0", "POLYLINE", "  8", "1", " 62", colour, " 66", "      1", "  6", "CONTINUOUS",
                " 70", "      8"]
        for x, y in points:
            out += ["  0", "VERTEX", "  8", "1", " 62", colour, "  6", "CONTINUOUS", " 70",
                    "     32", " 10", fixed(x, 2) + " ", " 20", fixed(y, 2) + " ", " 30", "0.00 "]
        out += ["  0", "SEQEND"]
    return out + ["  0", "ENDSEC", "  0", "EOF"]


def xy():
    def points(pairs):
        return [f" {fixed(x, 1)} ; {fixed(y, 1)} " for x, y in pairs]

    places = [" foot / bordure", " tack / amure", " luff head / tete guindant"]
    out = [NAME + "; Panels development XY"]
    for p in range(PANELS):
        out += ["", f"PANEL; {p + 1} ;{places[p]}", " CUT ;lower edge"]
        out += points(stretch(lower, p, 5, 35))
        out += ["", " CUT ;upper edge"]
        out += points(stretch(lower, p, 5, 5) + stretch(edge, p, 0, 5) + stretch(upper, p, 5, 35)
                      + stretch(edge, p, 35, 40) + stretch(lower, p, 35, 35))
        out += ["", " DRAW ;upper edge guideline"]
        out += points(guide(p))
    return out + ["", "EOF "]


def zones(first, second):
    assert len(first) < 14
    return first.ljust(14) + second


def plotter():
    def points(pairs):
        return [zones(fixed(x, 1) + " ", fixed(y, 1) + " ") for x, y in pairs]

    out = [TITLE + " Tovarek Plotter Development: " + NAME]
    for p in range(PANELS):
        x, y = lower(p, 8 if p == 0 else 6)
        out.append(f"panel,{p + 1:02d}, 1,{plain(x + 10)},{plain(y + 5)}, 0, 6")
        if p < PANELS - 1:
            out += ["draw           31"] + points(list(reversed(guide(p))))
            out += ["cut            75"] + points(
                stretch(lower, p, 5, 5) + stretch(edge, p, 0, 5) + stretch(upper, p, 5, 35)
                + stretch(edge, p, 35, 40) + stretch(lower, p, 35, 5))
        else:
            out += ["cut            73"] + points(
                stretch(lower, p, 5, 5) + stretch(edge, p, 0, 40) + stretch(lower, p, 35, 5))
    return out + ["EOF " + NAME]


# ---- Worlds --------------------------------------------------------------------------------------

def vrml1():
    ten = " " * 10
    out = ["#VRML V1.0 ascii ",
           "  DirectionalLight { direction .1 -.2 1 intensity .6 }",
           "  DirectionalLight { direction -.2 .2  -1 intensity .4 }",
           "  PerspectiveCamera { ",
           "    position " + "".join(fixed(v, 1) + " " for v in (CLEW_X / 2000, PEAK_Y / 2000, PEAK_Y / 600)),
           "    orientation 0 0 1 0 ", "  } ",
           "  ShapeHints { ", "    shapeType      UNKNOWN_SHAPE_TYPE", "  }",
           "Separator {   # world", "  Separator {  #  XYZ",
           "    Material { diffuseColor 1 1 .5 } ", "    Coordinate3 { ", "      point [ "]
    for i in range(PANELS + 1):
        for j in range(23):
            out.append(ten + "".join(fixed(v / 1000, 3) + " " for v in surface(i, j)) + " , ")
    out += ["         ] ", "    }  # coord", "    IndexedFaceSet { ", "      coordIndex [ "]
    for i in range(PANELS):
        low, up = i * 23, (i + 1) * 23
        faces = [(up, low + 1, low + 2), (up, up + 2, up + 1), (up, low + 2, up + 2)]
        for j in range(2, 20):
            faces += [(low + j, low + j + 1, up + j), (low + j + 1, up + j + 1, up + j)]
        faces += [(low + 20, low + 21, up + 20), (low + 21, up + 22, up + 20),
                  (up + 20, up + 22, up + 21)]
        assert len(faces) == 42
        out += [ten + f" {a} ,  {b} ,  {c} , -1 , " for a, b, c in faces]
    out += ["      ] ", "    }  # FaceSet", "    IndexedLineSet { ", "      coordIndex [ "]
    for i in range(PANELS + 1):
        indices = [i * 23 + j for j in range(23)]
        if i > 0:
            indices = [(i - 1) * 23 + 1] + indices + [(i - 1) * 23 + 21]
        out += [ten + f" {index} , " for index in indices] + [ten + "-1 , "]
    out += ["       ] ", "    }  # LineSet", "  }  #  end XYZ", "} # end world",
            'WWWAnchor { name "http://www.example.com/" map NONE ',
            "  FontStyle { size " + fixed(PEAK_Y / 8000, 3) + "  } ",
            "  Material { ", "     diffuseColor    .2 .5 .5 ", "     emissiveColor   .2 .5 .5 ", "  } ",
            "  Separator { ", "     Transform { ",
            "        translation " + "".join(
                fixed(v, 3) + " " for v in (PEAK_X / 2000, PEAK_Y * D("1.05") / 1000, D("-0.1"))),
            "        rotation 1 0 0  -.5 ", "     } ", "     AsciiText { ",
            '        string    "Brivane 2000"', "        justification  CENTER ", "     } ", "  } ",
            "}  # end WWWanchor", "  "]
    return out


def vrml2():
    def view(orientation, position, values, description):
        return [orientation, position + "".join(metres(v) for v in values), description, "    } "]

    sixteen = " " * 16
    out = ["#VRML V2.0 utf8 ", "# Brivane 2000", "Transform { # sail ", "  children [ # sail ",
           "    NavigationInfo { headlight FALSE } ",
           "    DirectionalLight { direction  .5 -.5 -1  intensity .6 } ",
           "    DirectionalLight { direction  -.5 -.5  1   intensity .6 } "]
    out += view("    Viewpoint { orientation 0 0 1 0 ", sixteen + "position ",
                (CLEW_X / 2, PEAK_Y / 2, PEAK_Y * 3 / 2), sixteen + 'description "Side" ')
    out += view("    Viewpoint { orientation 0 1 0 1.5708 ", sixteen + "position ",
                (PEAK_Y * 3 / 2 + CLEW_X, PEAK_Y / 2, D(0)), sixteen + 'description "Aft" ')
    out += view("    Viewpoint { orientation  1 0 0 1.4 ", sixteen + " position ",
                (CLEW_X / 2, CLEW_X * -2, PEAK_Y / 5), sixteen + 'description "Below" ')
    out += view("    Viewpoint { orientation 0 1 0 -1.9 ", sixteen + "position ",
                (PEAK_Y * -3 / 2, PEAK_Y / 2, PEAK_Y * -2 / 5), sixteen + 'description "Windward" ')
    out += ["", "    Transform { # rake ", "       rotation 0 0 1  " + fixed(-RAKE, 3) + " ",
            "    children [ # rake ", "    Transform {  # panels sheet",
            "       rotation 0 1 0   0.200 ", "    children [ # panels "]
    twelve = " " * 12
    for i in range(PANELS):
        out += ["      Shape {  ", "        geometry IndexedFaceSet { ", "          coordIndex [ "]
        faces = [" 10,  3, 12, -1, ", "  3,  5, 12, -1, ", "  5,  7, 12, -1, ",
                 "  7, 11, 12, -1, ", " 11, 13, 12, -1, "]
        for m in range(12, 76, 2):
            faces += [f" {m}, {m + 1}, {m + 2}, -1, ", f" {m + 1}, {m + 3}, {m + 2}, -1, "]
        faces += [" 68 , 69 , 77 , -1, ", " 69 , 71 , 77 , -1, ", " 70 , 68 , 77  "]
        out += [twelve + face for face in faces]
        out += ["                  ] # end point ", "", "          coord Coordinate { ",
                "            point [ "]
        for j in range(41):
            for line in (i, i + 1):
                out.append(twelve + "".join(metres(v) for v in surface(line, j)) + ", ")
        out += ["            ] # end point ", "          } # end coordinate ",
                "          solid  FALSE ", "          creaseAngle .5 ", "        } # end geometry ",
                "        appearance Appearance { ",
                "          material Material { diffuseColor  1 1 .9 } ",
                "        } # end appearance ", "      } # end shape "]
    return out + ["    ] # end children panels ", "    } # end transform panels sheet ",
                  "    ] # end children rake ", "    } # end transform rake ",
                  "  ] # end children sail ", "} # end transform sail ", " "]


# ---- Patches of a sail with straight edges -------------------------------------------------------

CORNERS = {"tack": (D(0), D(0)), "throat": (D(0), D(4000)), "peak": (D(1500), D(5000)),
           "clew": (D(3000), D(200))}
# Corner, end of the edge that carries the height, of the one that carries the width, sizes in %.
PATCHES = {"clew": ("clew", "peak", "tack", 11, 12), "tack": ("tack", "throat", "clew", 9, 10),
           "head": ("throat", "tack", "peak", 8, 12), "peak": ("peak", "clew", "throat", 8, 12)}
SHORT = {"clew": "cl", "tack": "tk", "head": "hd", "peak": "pk"}


def patch(word, layer):
    """Corner, 20 steps up one side, 20 over the inner edge, 20 back along the other side."""
    start, up, along, height, width = PATCHES[word]
    size = (D(1), D("0.8"))[layer] / 100

    def vector(end, percent):
        return [(CORNERS[end][n] - CORNERS[start][n]) * percent * size for n in (0, 1)]

    h, w = vector(up, height), vector(along, width)
    shares = [(D(k) / 20, D(0)) for k in range(21)]
    for k in range(1, 20):
        t = D(k) / 20
        bend = D("0.7") * t * (1 - t)
        shares.append(((1 - t) ** 2 + bend, t ** 2 + bend))
    shares += [(D(0), D(k) / 20) for k in range(20, -1, -1)]
    return [tuple(CORNERS[start][n] + a * h[n] + b * w[n] for n in (0, 1)) for a, b in shares]


def patch_plotter():
    out = ["PLOT Patch:  -- Brivane 2000 -- version: 25 June 2000 "]
    for word in PATCHES:
        for layer in (0, 1):
            outline = patch(word, layer)
            label = [fixed((a + b) / 2, 1) for a, b in zip(outline[0], outline[30])]
            x, y = (plain(D(text)) for text in label)
            out.append(f"panel,{layer:02d}{SHORT[word]}, 1,{x},{y}, 0, 6")
            out.append(zones("cut", " 61"))
            out += [zones(fixed(x, 1) + " ", fixed(y, 1) + " ") for x, y in outline]
    return out + ["EOF " + NAME]


def patch_dxf(word, layer):
    out = ["999", f"{TITLE} - patch {word}{layer:02d}", "  0", "SECTION", "  2", "ENTITIES",
           "  0", "POLYLINE", "  8", "1", " 62", "      7", " 66", "      1", "  6", "CONTINUOUS",
           " 70", "      8"]
    for x, y in patch(word, layer):
        out += ["  0", "VERTEX", "  8", "1", " 62", "      7", "  6", "CONTINUOUS", " 70", "     32",
                " 10", fixed(x, 2) + " ", " 20", fixed(y, 2) + " ", " 30", "0.00 "]
    return out + ["  0", "SEQEND", "  0", "ENDSEC", "  0", "EOF"]


def save(name, lines):
    (HERE / name).write_bytes("".join(line + "\r\n" for line in lines).encode("cp1252"))


for panel in range(PANELS):
    save(f"small_Panel{panel + 1:02d}.DXF", dxf(panel))
save("small.xyz", xy())
save("small.bp4", plotter())
save("small.wrl", vrml1())
save("small2.WRL", vrml2())
save("Patches.bp4", patch_plotter())
save("Patch_head00.dxf", patch_dxf("head", 0))
save("Patch_clew01.dxf", patch_dxf("clew", 1))
